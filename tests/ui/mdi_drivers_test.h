#pragma once

// A frame with a download manager of two drivers, and forms whose pages name them.

#include "document/page.h"
#include "mdi_sheetwright_test.h"
#include "support/fake_dock.h"

#include <QToolBar>
#include <QWindow>

namespace sheetwright {

inline QStringList Naming(const QString& drivers) {
    return {S("Drivers=") + drivers};
}

class MdiDriversTest : public MdiSheetwrightTest {
  protected:
    explicit MdiDriversTest(const QString& title = S("Tolvane Quillon Sheetwright"))
        : MdiSheetwrightTest(title) {
        Write(S("DRIVERS/meter/DRIVER.INF"), "");
        Write(S("DRIVERS/meter/Data/table.csv"), "V\r\n230\r\n");
        Restart();
    }

    // A frame whose download manager has two drivers.
    void Restart() {
        Unload();
        auto dock = std::make_unique<FakeDock>();
        m_dock = dock.get();
        m_dock->drivers = {{S("meter")}, {S("scale")}};
        m_dock->directory = Path(S("DRIVERS/"));
        Load(std::move(dock));
    }

    // A page for the meter, one for both drivers, one for none.
    [[nodiscard]] static QByteArray Form() {
        FormText form;
        form.Page(S("Meter"), Naming(S("meter")))
            .Field(S("v"), {S("DataSource=V,DRIVERS\\meter"), S("MultiRecordIndex=0")});
        form.Page(S("Both"), Naming(S("scale;meter\\Data"))).Field(S("b"));
        form.Page(S("None")).Field(S("n"));
        form.Data(1, {}).Data(2, {}).Data(3, {});
        return form.Bytes();
    }
    [[nodiscard]] static QByteArray NamedTwice() {
        FormText form;
        form.Page(S("Twice"), Naming(S("meter;meter;scale"))).Field(S("v")).Data(1, {});
        return form.Bytes();
    }

    // Those that show, in their order.
    [[nodiscard]] QStringList Buttons() const {
        QStringList keys;
        for (const QAction* const action : m_frame->findChild<QToolBar*>(S("tbToolBar"))->actions())
            if (action->isVisible() && action->objectName().startsWith(u"DL")) keys << action->objectName();
        return keys;
    }
    [[nodiscard]] QToolButton* Button(const char* key) const {
        return m_frame->findChild<QToolButton*>(S(key));
    }
    void Deliver(const QString& name = S("DRIVERS/meter/Data/table.csv")) {
        m_dock->onDownload = [path = Path(name)] { return path; };
    }
    [[nodiscard]] QString FirstField() const {
        return m_frame->Active()->Document().page->Entries.At(1).text;
    }

    // As the window system tells it.
    void RightClick(const char* key) const {
        QToolButton* const button = Button(key);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_frame.get()));
        QCoreApplication::sendPostedEvents();  // the tool bar makes room
        QTest::mouseClick(m_frame->windowHandle(), Qt::RightButton, {},
                          button->mapTo(m_frame.get(), button->rect().center()));
    }
    void ChooseInPopup(const char* name) const {
        QMenu& menu = Menu("mnuDriverPopup");
        ASSERT_TRUE(menu.isVisible());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(Action(name)).center());
    }

    FakeDock* m_dock = nullptr;
};

}  // namespace sheetwright

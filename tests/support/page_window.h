#pragma once

// A window around a form and a frame around the windows that record what they are told.

#include "core/main_window.h"
#include "document/document_window.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace sheetwright {

class RecordingWindow : public DocumentWindow {
  public:
    [[nodiscard]] Size Inside() const override { return inside; }
    [[nodiscard]] double ScrollBarBreadth() const override { return scrollBarBreadth; }
    [[nodiscard]] bool IsMinimised() const override { return minimised; }
    [[nodiscard]] bool IsShown() const override { return shown; }

    void LayoutChanged() override { calls << QStringLiteral("LayoutChanged"); }
    void Scrolled() override { calls << QStringLiteral("Scrolled"); }
    void PageChanged() override { calls << QStringLiteral("PageChanged"); }
    void ElementChanged(ElementRef element) override {
        calls << QStringLiteral("ElementChanged ") + NameOf(element);
    }

    void FocusContainer() override {
        focused = {};
        calls << QStringLiteral("FocusContainer");
    }
    void FocusPage() override {
        focused = {};
        calls << QStringLiteral("FocusPage");
    }
    void FocusElement(ElementRef element) override {
        focused = element;
        calls << QStringLiteral("FocusElement ") + NameOf(element);
    }
    void ShowEntry() override {
        entryShown = true;
        calls << QStringLiteral("ShowEntry");
    }
    void HideEntry() override {
        entryShown = false;
        calls << QStringLiteral("HideEntry");
    }
    void BeginDrag(int mode) override {
        dragMode = mode;
        calls << QStringLiteral("BeginDrag %1").arg(mode);
    }
    void EndDrag() override {
        dragMode = 0;
        calls << QStringLiteral("EndDrag");
    }

    // As the key of an element's record: "3", "C3", "B3"; "" for none.
    [[nodiscard]] static QString NameOf(ElementRef element) {
        switch (element.kind) {
            case ElementKind::Entry:
                return QString::number(element.number);
            case ElementKind::Check:
                return QStringLiteral("C%1").arg(element.number);
            case ElementKind::Bitmap:
                return QStringLiteral("B%1").arg(element.number);
            default:
                return {};
        }
    }
    [[nodiscard]] int Count(const QString& call) const { return static_cast<int>(calls.count(call)); }

    QStringList calls;  // all that was told, with what it was told about
    Size inside{20000, 20000};
    double scrollBarBreadth = 240;
    bool minimised = false;
    bool shown = true;
    ElementRef focused;
    bool entryShown = false;
    int dragMode = 0;  // 0 while nothing is dragged
};

class RecordingMainWindow : public MainWindow {
  public:
    [[nodiscard]] bool IsEnabled() const override { return enabled; }
    void SetEnabled(bool isEnabled) override {
        enabled = isEnabled;
        calls << (isEnabled ? QStringLiteral("enabled") : QStringLiteral("disabled"));
    }
    void SetUndoEnabled(bool isEnabled) override { undoEnabled = isEnabled; }
    [[nodiscard]] bool IsUndoEnabled() const override { return undoEnabled; }
    [[nodiscard]] bool IsBlankTicked() const override { return blankTicked; }
    [[nodiscard]] QString PagePanel() const override { return panel; }
    void SetPagePanel(const QString& text) override {
        panel = text;
        panels << text;
    }
    void SetPageBox(const QString& text) override { box = text; }
    void RefreshPageList(frmSheetwright&) override { calls << QStringLiteral("RefreshPageList"); }
    void DriverSetup(const QString& names) override { drivers << names; }
    void ShowAddPage(frmSheetwright& document) override {
        ++addPageShown;
        if (onAddPage) onAddPage(document);
    }
    [[nodiscard]] int FreeResources() const override { return freeResources; }

    QStringList calls;  // "enabled", "disabled", "RefreshPageList"
    bool enabled = true;
    bool blankTicked = false;
    QString panel;
    QStringList panels;  // all that the panel showed
    QString box;
    bool undoEnabled = false;
    int addPageShown = 0;
    std::function<void(frmSheetwright&)> onAddPage;  // what the person does in the dialog
    int freeResources = 100;
    QStringList drivers;  // of each call
};

}  // namespace sheetwright

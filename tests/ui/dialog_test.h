#pragma once

// Dialogs shown on the offscreen screen and worked with real events.

#include "core/application.h"
#include "support/short_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QStyleOptionButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace sheetwright {

inline void UseGerman(Application& application) {
    application.LoadDictionary(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/languages/de/Sheetwright.DIC"));
}

inline void ShowActive(QWidget& dialog) {
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
}

inline void DoubleClick(QListWidget& list, int row) {
    const QPoint centre = list.visualItemRect(list.item(row)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, centre);
}

inline QStringList RowsOf(const QListWidget& list) {
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << list.item(row)->text();
    return rows;
}

// Every label and button of a dialog that shows has the room that its text needs.
inline void ExpectNothingCutOff(const QWidget& dialog) {
    for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
        EXPECT_GE(label->height(),
                  label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height())
            << label->text().toStdString();
    }
    for (const QAbstractButton* const button : dialog.findChildren<QAbstractButton*>()) {
        EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        EXPECT_GE(button->height(), button->sizeHint().height()) << button->text().toStdString();
        EXPECT_TRUE(dialog.rect().contains(QRect(button->mapTo(&dialog, QPoint(0, 0)), button->size())))
            << button->text().toStdString();
    }
}

}  // namespace sheetwright

// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/state.h"
#include "support/index_fixture.h"
#include "support/other_program.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_window.h"
#include "viewing/CViewer.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>

/// What the tests of the modal windows over the main window share.
namespace ostrand::tests {

/// Runs an action that opens a modal window, and the steps while it is open; takes the window away
/// where they left it open. A window that does not open fails the test.
template <typename Window>
void inModal(const std::function<void()>& open, const std::function<void(Window&)>& steps)
{
    bool ran = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window)
            return;
        look.stop();
        ran = true;
        const QPointer<Window> self(window);
        window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), window);
        steps(*window);
        if (self)
            self->hide();
    });
    look.start(0);
    open();
    QVERIFY2(ran, "the window did not open");
}

/// File dialogs that fail.
class FailingDialogs final : public toolkit::PromptHost
{
public:
    explicit FailingDialogs(QStringList& told)
        : m_told(told)
    {
    }
    toolkit::Answer messageBox(const toolkit::Box& box) override
    {
        m_told << box.text;
        return toolkit::Answer::Ok;
    }
    std::optional<QString> inputBox(const QString&, const QString&) override { return {}; }
    std::optional<QString> fileDialog(const toolkit::FileRequest&) override
    {
        throw store::Error(57, QStringLiteral("Device I/O error"));
    }
    std::optional<QString> folderDialog(QWidget*, const QString&) override { return {}; }
    void openAddress(const QString&) override {}

private:
    QStringList& m_told;
};

/// Works in one open grid window as its user does.
class Desk
{
public:
    Desk(toolkit::GridWindow& shown, IndexFixture& fixture)
        : window(shown),
          m_fixture(fixture)
    {
    }

    toolkit::DataGrid& grid() const { return *window.findChild<toolkit::DataGrid*>(); }
    toolkit::DataControl& data(const QString& name) const
    {
        return *window.findChild<toolkit::DataControl*>(name);
    }
    QPushButton& button(const QString& name) const { return *window.findChild<QPushButton*>(name); }
    void press(const QString& name) const
    {
        auto* found = window.findChild<QPushButton*>(name);
        QVERIFY2(found && found->isEnabled() && found->isVisible(), qPrintable(name));
        QTest::mouseClick(found, Qt::LeftButton);
    }
    /// Presses a button by the key of its caption.
    void pressByKey(const QString& name) const
    {
        const QSignalSpy clicked(&button(name), &QPushButton::clicked);
        const QString caption = button(name).text();
        const QChar letter = caption.at(caption.indexOf(u'&') + 1).toUpper();
        QTest::keyClick(
            QApplication::focusWidget(), static_cast<Qt::Key>(letter.unicode()), Qt::AltModifier);
        QTRY_COMPARE(clicked.size(), 1);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void type(const QString& text) const
    {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    }
    int rows() const { return grid().model()->rowCount(); }
    void goToRow(int row, int column = 0) const
    {
        grid().setFocus();
        grid().setCurrentIndex(grid().model()->index(row, column));
    }
    /// Makes a cell of the row with this key the current one.
    void goTo(const QString& key, int column = 0, int keyColumn = 0) const
    {
        for (int row = 0; row < rows(); ++row) {
            if (shown(row, keyColumn) == key) {
                goToRow(row, column);
                return;
            }
        }
        QFAIL(qPrintable(key));
    }
    void goToNewRow(int column = 0) const { goToRow(rows() - 1, column); }
    QString shown(int row, int column) const
    {
        return grid().model()->index(row, column).data().toString();
    }
    /// The cells of a column in the order of the rows, without the row for new ones.
    QStringList shownColumn(int column) const
    {
        QStringList cells;
        for (int row = 0; row < rows() - 1; ++row)
            cells << shown(row, column);
        return cells;
    }
    QString cell(int column) const { return grid().Columns(column).Value().text(); }
    QStringList texts() const { return m_fixture.texts(); }

    void expectFailure(const QString& beginning) const
    {
        const auto boxes = m_fixture.prompts.boxes;
        const QStringList told = texts();
        QVERIFY2(told.size() == 1, qPrintable(told.join(u'|')));
        QVERIFY(boxes[0].icon == toolkit::BoxIcon::Exclamation);
        QVERIFY(boxes[0].buttons == toolkit::BoxButtons::Ok);
        QCOMPARE(boxes[0].title, QStringLiteral("Ostrand Instrument Datasheets"));
        QVERIFY2(told[0].startsWith(beginning), qPrintable(told[0]));
    }
    /// The question came up first, as a question.
    void expectQuestion(const QString& text) const
    {
        const auto& boxes = m_fixture.prompts.boxes;
        QVERIFY(!boxes.empty());
        QVERIFY(boxes[0].icon == toolkit::BoxIcon::Question);
        QVERIFY(boxes[0].buttons == toolkit::BoxButtons::YesNo);
        QCOMPARE(texts(), QStringList{text});
    }

    toolkit::GridWindow& window;

private:
    IndexFixture& m_fixture;
};

} // namespace ostrand::tests

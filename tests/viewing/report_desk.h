// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/state.h"
#include "support/in_window.h"
#include "support/program_fixture.h"
#include "viewing/frmRptViewer.h"
#include "viewing/page_flow.h"
#include "viewing/report_preview.h"
#include "viewing/report_search.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/pages.h"
#include "viewing/reports/report_data.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QThread>
#include <QToolButton>

#include <memory>

namespace ostrand::tests {

/// The report viewer over a project, worked as its user does.
class ReportDesk
{
public:
    static constexpr int alarmSummary = 1;
    static constexpr int instrumentIndex = 2;
    static constexpr int maintenance = 3;
    static constexpr int installationDetails = 4;

    ReportDesk()
        : window(std::make_unique<viewing::frmRptViewer>())
    {
    }

    void open(const QString& path)
    {
        project = path;
        app::g_strIndexFile = path;
    }
    /// Shows a report, and runs the steps while it is open.
    void show(int number, const std::function<void()>& steps)
    {
        inWindow(
            *window, [&] { window->ShowInfo(number); }, steps);
    }
    /// The same with all pages laid out first.
    void showWhole(int number, const std::function<void()>& steps)
    {
        show(number, [&] {
            QTRY_VERIFY_WITH_TIMEOUT(viewer().flow().complete(), 60000);
            QCoreApplication::processEvents();
            steps();
        });
    }

    /// The index in a form that takes its time with every row, as long as `isSlow`.
    void showSlow(const std::function<void()>& steps)
    {
        show(instrumentIndex, [&] {
            auto report =
                std::make_shared<viewing::Report>(viewing::reports::reportForms(instrumentIndex));
            for (viewing::reports::Description& form : *report) {
                viewing::reports::setLocation(form, project);
                form.columns.at(0).field.clear();
                form.columns.at(0).compose = [this](const viewing::reports::Row& row) {
                    if (isSlow)
                        QThread::msleep(slowMs);
                    return row[QStringLiteral("PlantItemNo")];
                };
            }
            viewer().setReportSource(report);
            viewer().ViewReport();
            QVERIFY(!viewer().flow().complete());
            steps();
        });
    }

    viewing::ReportViewer& viewer() const
    {
        return *window->findChild<viewing::ReportViewer*>(QStringLiteral("CRViewer1"));
    }
    viewing::ReportPreview& preview() const { return *control<viewing::ReportPreview>("Pages"); }
    viewing::ReportSearch& search() const { return *window->findChild<viewing::ReportSearch*>(); }
    template <typename Control>
    Control* control(const char* name) const
    {
        return window->findChild<Control*>(QString::fromLatin1(name));
    }
    QString text(const char* label) const { return control<QLabel>(label)->text(); }
    QString page() const { return control<QLineEdit>("txtPage")->text() + text("lblPages"); }
    QString zoom() const { return control<QComboBox>("cmbZoom")->currentText(); }
    int pages() const { return viewer().flow().count(); }
    /// Page `n` of all pages, as the viewer says it.
    QString pageOf(int number) const
    {
        return QString::number(number) + QStringLiteral(" / ") + QString::number(pages());
    }
    bool enabled(const char* button) const { return control<QToolButton>(button)->isEnabled(); }

    /// Presses a button; a disabled one fails the test.
    void press(const char* name) const
    {
        auto* button = control<QToolButton>(name);
        QVERIFY2(button && button->isEnabled() && button->isVisible(), name);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus ? focus : window.get(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Types into a field, over what is there.
    void type(const char* field, const QString& text) const
    {
        auto* line = control<QLineEdit>(field);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
    }
    /// Looks for a text, and waits until all pages have been looked through.
    void find(const QString& text) const
    {
        type("txtFind", text);
        key(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(search().complete(), 60000);
    }
    QStringList texts() { return program.prompts.takeTexts(); }

    ProgramFixture program;
    QString project;
    std::unique_ptr<viewing::frmRptViewer> window;
    bool isSlow = true;

private:
    static constexpr unsigned long slowMs = 4;
};

} // namespace ostrand::tests

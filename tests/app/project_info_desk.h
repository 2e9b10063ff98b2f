// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/fake_main_window.h"
#include "app/frmProjectInfo.h"
#include "app/project_attributes.h"
#include "support/program_fixture.h"
#include "toolkit/data_grid.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>

struct sqlite3;

namespace ostrand::tests {

/// The window of an empty project's attributes, and a user at it. The project is open in a main
/// window that writes down what it is told.
class ProjectInfoDesk : public ProgramFixture
{
public:
    ProjectInfoDesk();

    /// Opens the window and runs the steps while it is open.
    void open(const std::function<void()>& steps);
    template <typename Control>
    Control* control(const QString& name)
    {
        return window.findChild<Control*>(name);
    }
    toolkit::DataGrid& grid() { return *control<toolkit::DataGrid>(QStringLiteral("GridInfo")); }
    toolkit::DataControl& data()
    {
        return *control<toolkit::DataControl>(QStringLiteral("dbProjInfo"));
    }
    void press(const QString& name)
    {
        auto* button = control<QPushButton>(name);
        QVERIFY2(button && button->isEnabled() && button->isVisible(), qPrintable(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Presses a button by the key of its caption.
    void pressByKey(const QString& name)
    {
        const auto* button = control<QPushButton>(name);
        const QSignalSpy clicked(button, &QPushButton::clicked);
        const QString caption = button->text();
        const QChar letter = caption.at(caption.indexOf(u'&') + 1).toUpper();
        QTest::keyClick(
            QApplication::focusWidget(), static_cast<Qt::Key>(letter.unicode()), Qt::AltModifier);
        QTRY_COMPARE(clicked.size(), 1);
    }
    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    }
    /// Makes a cell of an attribute the current one.
    void goTo(const QString& attribute, int column = app::infoColumn::value);
    void goToNewRow(int column = app::infoColumn::name);
    QString cell(int column) { return grid().Columns(column).Value().text(); }
    QString value() { return cell(app::infoColumn::value); }
    QString stored(const QString& attribute)
    {
        return ProgramFixture::value(
            project,
            QStringLiteral("select attributeValue from ProjectInfo where attributeName = '")
                + attribute + QStringLiteral("'"));
    }
    void add(const QString& name, const QString& text)
    {
        ProgramFixture::execute(
            project,
            QStringLiteral(
                "insert into ProjectInfo (attributeName, attributeValue, static) values ('")
                + name + QStringLiteral("', '") + text + QStringLiteral("', False)"));
    }
    QStringList texts() { return prompts.takeTexts(); }
    void expectNotice(const QString& text);
    void expectFailure(const QString& text);

    QString project;
    QStringList log; ///< of the main window
    app::frmProjectInfo window;
};

/// Another program that uses the project file, as long as it stands.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& path);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void run(const char* sql);

private:
    sqlite3* m_file = nullptr;
};

} // namespace ostrand::tests

// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/main_window.h"
#include "toolkit/data_control.h"

#include <QStringList>
#include <QWidget>

namespace ostrand::tests {

/// A main window that writes down what it is asked to do.
class FakeMainWindow final : public app::MainWindow
{
public:
    explicit FakeMainWindow(QStringList& log)
        : m_log(log)
    {
    }

    QString ActiveTag() const override { return {}; }
    QString FolderDatasheets() const override { return {}; }
    QString FolderTemplates() const override { return {}; }
    QString DatasheetLogoFile() const override { return {}; }
    toolkit::DataControl& dbIndex() override { return m_dbIndex; }
    void AbleForm(bool blnEnable) override { note("AbleForm", blnEnable); }
    void ableButton(bool blnEnable) override { note("ableButton", blnEnable); }
    void ableFileMenu(bool blnEnable) override { note("ableFileMenu", blnEnable); }
    void FindDatasheet() override { m_log << QStringLiteral("FindDatasheet"); }
    void setDatasheetFolder(const QString& folder) override
    {
        m_log << QStringLiteral("DatasheetFolder(") + folder + QStringLiteral(")");
    }
    void setDatasheetFileName(const QString& name) override
    {
        m_log << QStringLiteral("DatasheetFileName(") + name + QStringLiteral(")");
    }
    void OpenIndex(const QString& path) override
    {
        m_log << QStringLiteral("OpenIndex(") + path + QStringLiteral(")");
    }
    void CreateIndex() override { m_log << QStringLiteral("CreateIndex"); }
    void setPanelText(int /*panel*/, const QString& text) override { m_log << text; }
    void showRecordCounter() override { m_log << QStringLiteral("showRecordCounter"); }
    void setProgress(int /*done*/, int /*total*/) override {}
    void refreshDocuments(const QString& /*docType*/) override {}
    QWidget* window() override { return &m_window; }

private:
    void note(const char* what, bool on)
    {
        m_log << QLatin1String(what) + (on ? QStringLiteral("(True)") : QStringLiteral("(False)"));
    }

    QStringList& m_log;
    toolkit::DataControl m_dbIndex;
    QWidget m_window;
};

} // namespace ostrand::tests

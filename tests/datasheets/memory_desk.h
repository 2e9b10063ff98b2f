// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "datasheets/session_desk.h"
#include "support/memory_workbook.h"

namespace ostrand::tests {

/// The desk with the application in memory: every action has its effect at once.
class MemoryDesk final : public SessionDesk
{
public:
    ~MemoryDesk() override { clear(); }

    void typeIn(const QString& sheet, const QString& cell, const QString& text) override;
    /// A command ends the entry, which makes no difference here.
    void beginTyping(const QString& sheet, const QString& cell, const QString& text) override
    {
        typeIn(sheet, cell, text);
    }
    void selectSheet(const QString& sheet) override { office.select(sheet); }
    void undo() override {} // nothing can be undone there
    void save() override { office.pressSave(); }
    void saveAs(const QString& file) override { office.pressSaveAs(file); }
    void closeWindow() override { office.pressClose(); }
    void quitApplication() override { office.pressClose(); }
    void answerUnsaved(UnsavedAnswer answer) override { office.answers = {answer}; }
    int unsavedQuestions() const override { return office.questions; }
    QString cellText(const QString& sheet, const QString& cell) override
    {
        return office.cellText(sheet, cell);
    }
    bool isWindowVisible() override { return office.isVisible(); }
    void kill() override
    {
        office.kill();
        office.tellLost();
    }
    void settle() override { QCoreApplication::processEvents(); }

    MemoryOffice office;
};

} // namespace ostrand::tests

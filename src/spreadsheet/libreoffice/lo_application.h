// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/office.h"

#include <vector>

namespace ostrand::spreadsheet::libreoffice {

class LoWorkbook;

/// A link to the application: the workbooks opened through it, and whether they show.
class LoApplication final : public Application, public std::enable_shared_from_this<LoApplication>
{
public:
    explicit LoApplication(std::shared_ptr<Office> office);

    std::shared_ptr<Workbook> Open(const QString& path) override;
    std::shared_ptr<Workbook> Add() override;
    bool isRunning() const override { return m_office->answers(); }
    void setVisible(bool visible) override;
    void refuseInput() override { m_takesInput = false; }
    void Quit() override;

    Office& office() { return *m_office; }
    bool takesInput() const { return m_takesInput; }

private:
    css::uno::Reference<css::lang::XComponent> loadDocument(const rtl::OUString& url,
                                                            bool readOnly);
    std::shared_ptr<Workbook> load(const QString& path, const rtl::OUString& url);
    std::vector<std::shared_ptr<LoWorkbook>> workbooks();

    std::shared_ptr<Office> m_office;
    std::vector<std::weak_ptr<LoWorkbook>> m_workbooks;
    bool m_visible = false;
    bool m_takesInput = true;
};

} // namespace ostrand::spreadsheet::libreoffice

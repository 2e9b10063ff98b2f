// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "office/watched_application.h"

namespace ostrand::tests {
namespace {

using spreadsheet::Application;
using spreadsheet::Workbook;

class Link final : public Application
{
public:
    Link(std::shared_ptr<Application> real, std::shared_ptr<std::weak_ptr<Workbook>> last)
        : m_real(std::move(real)),
          m_last(std::move(last))
    {
    }
    std::shared_ptr<Workbook> Open(const QString& path) override
    {
        auto opened = m_real->Open(path);
        *m_last = opened;
        return opened;
    }
    std::shared_ptr<Workbook> Add() override { return m_real->Add(); }
    bool isRunning() const override { return m_real->isRunning(); }
    void setVisible(bool visible) override { m_real->setVisible(visible); }
    void refuseInput() override { m_real->refuseInput(); }
    void Quit() override { m_real->Quit(); }

private:
    std::shared_ptr<Application> m_real;
    std::shared_ptr<std::weak_ptr<Workbook>> m_last;
};

} // namespace

WatchedApplication::WatchedApplication()
{
    install();
}

WatchedApplication::~WatchedApplication()
{
    spreadsheet::setApplicationFactory({});
}

void WatchedApplication::install()
{
    spreadsheet::setApplicationFactory([last = m_workbook] {
        return std::make_shared<Link>(spreadsheet::CreateHostObject(), last);
    });
}

} // namespace ostrand::tests

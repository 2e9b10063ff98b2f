// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Populating from a server; OSTRAND_TEST_SOURCE names its kind.
#include "pid/populate_cases.h"
#include "support/odbc_source.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace ostrand::tests;

namespace {

constexpr QLatin1StringView kind{OSTRAND_TEST_SOURCE};

class PidServer final : public PidSource
{
public:
    explicit PidServer(OdbcSource& source)
        : m_source(source)
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly))
            qFatal("the configuration cannot be written");
        file.write("; the plant's server\r\n[Process Database]\r\nDatabaseType=SQL Server\r\n"
                   "Schema=postgres\r\n");
        m_source.makeInstrumentTable({});
    }

    QString path() const override { return m_folder.filePath(u"Project.cfg"_s); }
    void fill(const std::vector<PidRow>& rows) override
    {
        for (const PidRow& row : rows) {
            m_rows.push_back(
                {row.function, row.tag, static_cast<int>(m_rows.size()) + 1, row.service});
        }
        m_source.makeInstrumentTable(m_rows);
    }
    /// LIKE of the one does for the letters of English, that of the other for none.
    bool ignoresCase() const override { return kind == "sqlite"_L1; }

private:
    OdbcSource& m_source;
    QTemporaryDir m_folder;
    std::vector<InstrumentRow> m_rows;
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    // The driver manager keeps what it knows of a data source: there is one server for all cases.
    const auto source = makeOdbcSource(kind);
    PopulateCases cases([&] { return std::make_unique<PidServer>(*source); });
    return QTest::qExec(&cases, argc, argv);
}

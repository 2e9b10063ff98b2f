// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_file.h"

#include "toolkit/file_system.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryFile>

#include <chm_lib.h>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

constexpr qint64 largestFile = qint64{256} << 20;
constexpr quint64 largestObject = quint64{16} << 20;

std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!toolkit::fileExists(path) || file.size() > largestFile || !file.open(QFile::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

QByteArray digestOf(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
}

std::optional<chmUnitInfo> find(chmFile* file, const QString& name)
{
    const QByteArray path = (name.startsWith(u'/') ? name : u'/' + name).toUtf8();
    chmUnitInfo found{};
    if (path.endsWith('/') || path.size() > CHM_MAX_PATHLEN
        || chm_resolve_object(file, path.constData(), &found) != CHM_RESOLVE_SUCCESS)
        return std::nullopt;
    return found;
}

} // namespace

struct HelpFile::Opened
{
    using Handle = std::unique_ptr<chmFile, decltype(&chm_close)>;

    QByteArray digest;
    QTemporaryFile copy;
    Handle chm{nullptr, &chm_close};
};

HelpFile::HelpFile(std::shared_ptr<Opened> opened)
    : m_opened(std::move(opened))
{
}

std::optional<HelpFile> HelpFile::open(const QString& path)
{
    const auto content = contentOf(path);
    const auto digest = contentOf(path + u".sha256"_s);
    if (!content || !digest || digestOf(*content) != digest->trimmed().toLower())
        return std::nullopt;
    auto opened = std::make_shared<Opened>();
    opened->digest = digest->trimmed().toLower();
    if (!opened->copy.open() || opened->copy.write(*content) != content->size()
        || !opened->copy.flush())
        return std::nullopt;
    opened->chm.reset(chm_open(QFile::encodeName(opened->copy.fileName()).constData()));
    if (!opened->chm)
        return std::nullopt;
    return HelpFile(std::move(opened));
}

bool HelpFile::isSameAs(const HelpFile& other) const
{
    return m_opened->digest == other.m_opened->digest;
}

bool HelpFile::contains(const QString& name) const
{
    return find(m_opened->chm.get(), name).has_value();
}

std::optional<QByteArray> HelpFile::read(const QString& name) const
{
    auto found = find(m_opened->chm.get(), name);
    if (!found || found->length > largestObject)
        return std::nullopt;
    QByteArray content(static_cast<qsizetype>(found->length), '\0');
    const auto got = chm_retrieve_object(m_opened->chm.get(),
                                         &*found,
                                         reinterpret_cast<unsigned char*>(content.data()),
                                         0,
                                         static_cast<LONGINT64>(found->length));
    if (got != content.size())
        return std::nullopt;
    return content;
}

} // namespace ostrand::app

// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/pdf.h"

#include "store/error.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "viewing/reports/measures.h"
#include "viewing/reports/pages.h"

#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <memory>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::viewing::reports {
namespace {

constexpr int pathAccess = 75;

[[noreturn]] void raisePathAccess()
{
    throw Error(pathAccess, u"Path/File access error"_s);
}

[[noreturn]] void raiseDiskFull()
{
    throw Error(toolkit::fileErrors::diskFull, u"Disk full"_s);
}

/// Hands on what is written, and remembers when something was not taken: the writer of the PDF does
/// not look.
class WatchedDevice final : public QIODevice
{
public:
    explicit WatchedDevice(QIODevice& target)
        : m_target(target)
    {
        open(WriteOnly | Unbuffered);
    }
    bool isSequential() const override { return true; }
    bool failed() const { return m_failed; }

protected:
    qint64 readData(char* /*data*/, qint64 /*most*/) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        m_failed = m_failed || m_target.write(data, size) != size;
        return size;
    }

private:
    QIODevice& m_target;
    bool m_failed = false;
};

/// The device of a path. Only a regular file may be replaced by another.
std::unique_ptr<QFileDevice> openTarget(const QString& path)
{
    const QFileInfo target(path);
    std::unique_ptr<QFileDevice> device;
    if (target.exists() && !target.isFile() && !target.isDir())
        device = std::make_unique<QFile>(path);
    else
        device = std::make_unique<QSaveFile>(path);
    if (path.isEmpty() || !device->open(QIODevice::WriteOnly))
        raisePathAccess();
    return device;
}

void finish(QFileDevice& device)
{
    // What commits the file does not mind the last bytes being refused.
    if (!device.flush())
        raiseDiskFull();
    if (auto* saved = qobject_cast<QSaveFile*>(&device); saved != nullptr && !saved->commit())
        raisePathAccess();
}

/// False when `step` ended it.
bool paint(Pages& pages, QPdfWriter& writer, const WatchedDevice& device, const PageStep& step)
{
    QPainter painter;
    if (!painter.begin(&writer))
        raisePathAccess();
    painter.scale(unitsPerPoint, unitsPerPoint);
    const int count = pages.count();
    for (int page = 0; page < count; ++page) {
        if (step && !step(page, count))
            return false;
        if (page > 0)
            writer.newPage();
        pages.draw(painter, page);
        if (device.failed())
            raiseDiskFull();
    }
    return true;
}

} // namespace

bool writePdf(Pages& pages, const QString& path, const PageStep& step)
{
    pages.layOutAll();
    const std::unique_ptr<QFileDevice> file = openTarget(toolkit::filePath(path));
    WatchedDevice device(*file);
    {
        QPdfWriter writer(&device);
        writer.setPageLayout(pages.pageLayout());
        writer.setResolution(72 * unitsPerPoint);
        writer.setTitle(pages.title());
        writer.setCreator(toolkit::programTitle());
        if (!paint(pages, writer, device, step))
            return false;
    }
    if (device.failed())
        raiseDiskFull();
    finish(*file);
    return true;
}

} // namespace ostrand::viewing::reports

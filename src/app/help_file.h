// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace ostrand::app {

/// A compiled help file (.chm). It is read from a copy of its own, so that what is shown of it
/// stays the same whatever becomes of the file.
class HelpFile
{
public:
    /// Nothing for a file that is missing, or that is not the one whose SHA-256 digest lies beside
    /// it under its name + ".sha256". The library that reads help files writes outside of its
    /// memory on some damaged ones, so it gets to see none.
    static std::optional<HelpFile> open(const QString& path);

    /// True where both were opened on the same content.
    bool isSameAs(const HelpFile& other) const;
    bool contains(const QString& name) const;
    /// The content of an object such as "ID_MANUAL.htm" or "pictures/index.png", whatever the case
    /// of its letters; nothing where it is missing or larger than 16 MiB.
    std::optional<QByteArray> read(const QString& name) const;

private:
    struct Opened;
    explicit HelpFile(std::shared_ptr<Opened> opened);

    std::shared_ptr<Opened> m_opened;
};

} // namespace ostrand::app

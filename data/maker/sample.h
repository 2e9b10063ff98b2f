// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace ostrand::maker {

/// The folders and files that the sample project names; an empty one keeps the name in project.csv.
struct SampleFolders
{
    std::string datasheets;
    std::string templates;
    std::string pid = {};
    std::string logo = {};
};

/// Makes the sample project: the template with the tags, documents, ties, attributes and index
/// revisions of the folder `sample` under `data`. Raises as `makeProject` does.
void makeSample(const std::filesystem::path& target,
                const std::filesystem::path& data,
                const SampleFolders& folders = {});

} // namespace ostrand::maker

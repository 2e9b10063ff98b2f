// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-make-project: makes the template, the sample project with its P&ID database, and projects
// of any size from the data files.
#include "maker/pid_database.h"
#include "maker/plant_generator.h"
#include "maker/project_file.h"
#include "maker/sample.h"

#include <charconv>
#include <iostream>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace ostrand::maker;

constexpr std::string_view usage =
    "usage: ostrand-make-project [OPTION]... template OUT\n"
    "       ostrand-make-project [OPTION]... sample OUT\n"
    "       ostrand-make-project [OPTION]... pid OUT\n"
    "       ostrand-make-project [OPTION]... generate COUNT OUT\n"
    "\n"
    "Makes the file OUT: the empty template of projects, the sample project, the sample's P&ID\n"
    "database, or a project of COUNT tags.\n"
    "\n"
    "  --data DIR        read the data files from DIR instead of the source folder\n"
    "  --datasheets DIR  the datasheet folder that the sample names\n"
    "  --templates DIR   the template folder that the sample names\n"
    "  --pid FILE        the P&ID database that the sample names\n"
    "  --logo FILE       the logo that the sample names\n";

/// A command line that is no use; the text is empty or tells why.
struct UsageError
{
    std::string why;
};

struct CommandLine
{
    std::vector<std::string> words;
    std::map<std::string, std::string> options{{"--data", OSTRAND_DATA_DIR},
                                               {"--datasheets", {}},
                                               {"--templates", {}},
                                               {"--pid", {}},
                                               {"--logo", {}}};
};

CommandLine parse(std::span<char*> arguments)
{
    CommandLine line;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string word = arguments[i];
        if (word.rfind("--", 0) != 0) {
            line.words.push_back(word);
            continue;
        }
        const auto option = line.options.find(word);
        if (option == line.options.end())
            throw UsageError{"unknown option " + word};
        if (++i == arguments.size())
            throw UsageError{word + " needs a path"};
        option->second = arguments[i];
    }
    return line;
}

int countOf(const std::string& word)
{
    int count = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, failure] = std::from_chars(word.data(), end, count);
    if (failure != std::errc{} || rest != end || count < 0)
        throw UsageError{word + " is no count of tags"};
    return count;
}

void make(const CommandLine& line)
{
    const std::string& data = line.options.at("--data");
    const std::vector<std::string>& words = line.words;
    if (words.size() == 2 && words[0] == "template") {
        makeProject(words[1], data);
    } else if (words.size() == 2 && words[0] == "sample") {
        const SampleFolders folders{line.options.at("--datasheets"),
                                    line.options.at("--templates"),
                                    line.options.at("--pid"),
                                    line.options.at("--logo")};
        makeSample(words[1], data, folders);
    } else if (words.size() == 2 && words[0] == "pid") {
        makePidDatabase(words[1], data);
    } else if (words.size() == 3 && words[0] == "generate") {
        makeGeneratedProject(countOf(words[1]), words[2], data);
    } else {
        throw UsageError{};
    }
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        make(parse({argv, static_cast<std::size_t>(argc)}));
        return 0;
    } catch (const UsageError& error) {
        std::cerr << error.why << (error.why.empty() ? "" : "\n") << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "ostrand-make-project: " << error.what() << '\n';
        return 1;
    }
}

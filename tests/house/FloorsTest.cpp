#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Each folder and the folders it may include besides itself.
const std::map<std::string, std::set<std::string>> kFloors{
    {"geometry", {}},
    {"platform", {"geometry"}},
    {"commonutils", {"platform", "geometry"}},
    {"settings", {"commonutils", "platform", "geometry"}},
    {"customui", {"settings", "commonutils", "platform", "geometry"}},
    {"editor", {"customui", "settings", "commonutils", "platform", "geometry"}},
    {"output", {"customui", "settings", "commonutils", "platform", "geometry"}},
    {"capture", {"editor", "output", "customui", "settings", "commonutils", "platform", "geometry"}},
    {"app", {"capture", "editor", "output", "customui", "settings", "commonutils", "platform", "geometry"}},
};

struct Line {
    std::string place; // file and line number
    std::string text;
};

bool isSource(const fs::path& path)
{
    return path.extension() == ".h" || path.extension() == ".cpp" || path.extension() == ".mm";
}

void appendLines(const fs::path& path, std::vector<Line>& lines)
{
    std::ifstream file(path);
    int number = 0;
    for (std::string text; std::getline(file, text);)
        lines.push_back({path.string() + ":" + std::to_string(++number), text});
}

std::vector<Line> linesOf(const std::string& folder)
{
    std::vector<Line> lines;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / folder))
        if (entry.is_regular_file() && isSource(entry.path()))
            appendLines(entry.path(), lines);
    return lines;
}

// The first capture of `pattern` in a line; empty when it does not match.
std::string match(const Line& line, const std::regex& pattern)
{
    std::smatch found;
    return std::regex_search(line.text, found, pattern) ? found[1].str() : std::string();
}

}

TEST(Floors, IncludeOnlyWhatLiesBelow)
{
    const std::regex include(R"(^\s*#\s*include\s*"([^"/]+)/)");
    for (const auto& [folder, allowed] : kFloors) {
        const std::vector<Line> lines = linesOf(folder);
        EXPECT_FALSE(lines.empty()) << folder << " holds no source";
        for (const Line& line : lines) {
            const std::string target = match(line, include);
            EXPECT_TRUE(target.empty() || target == folder || allowed.contains(target))
                << line.place << line.text;
        }
    }
}

TEST(Floors, KeepTheOperatingSystemInsideThePlatform)
{
    const std::regex systemCondition(
        R"(^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*(__linux__|__APPLE__|Q_OS_|_WIN32|__unix__))");
    const std::regex systemHeader(
        R"(^\s*#\s*include\s*[<"](xcb/|X11/|AppKit/|Carbon/|Cocoa/|CoreGraphics/))");
    for (const auto& [folder, allowed] : kFloors) {
        if (folder == "platform")
            continue;
        for (const Line& line : linesOf(folder)) {
            EXPECT_EQ(match(line, systemCondition), "") << line.place;
            EXPECT_EQ(match(line, systemHeader), "") << line.place;
        }
    }
}

TEST(Floors, KeepEachSystemInItsOwnFolderOfThePlatform)
{
    const std::regex systemHeader(
        R"(^\s*#\s*include\s*[<"](xcb/|X11/|AppKit/|Carbon/|Cocoa/|CoreGraphics/))");
    for (const Line& line : linesOf("platform")) {
        const bool isInSystemFolder = line.place.find("/platform/x11/") != std::string::npos ||
                                      line.place.find("/platform/macos/") != std::string::npos;
        EXPECT_TRUE(isInSystemFolder || match(line, systemHeader).empty()) << line.place;
    }
}

// A help project with our header as its map, compiled by a real help compiler: chmcmd, of the package
// fp-utils.
#ifndef _WIN32

#include "base/temporary_folder.h"
#include "indexer/help_text_file.h"
#include "indexer/index_files.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

bool runIn(const TemporaryFolder& folder, const std::string& command) {
    const auto whole = std::string("cd '").append(folder.path().string()).append("' && ").append(command);
    return std::system((whole + " >log 2>&1").c_str()) == 0;
}

std::uint32_t numberAt(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;) number = number << 8U | static_cast<unsigned char>(bytes.at(at + i));
    return number;
}

// The compiled help's map from numbers to topics: its file #IVB holds the size of the rest, then pairs of a
// number and a place in its file #STRINGS, where the topic's file is named.
std::map<int, std::string> mapOf(const std::string& ivb, const std::string& strings) {
    std::map<int, std::string> map;
    EXPECT_EQ(numberAt(ivb, 0), ivb.size() - 4);
    for (std::size_t at = 4; at + 8 <= ivb.size(); at += 8)
        map[static_cast<int>(numberAt(ivb, at))] =
            std::filesystem::path(&strings.at(numberAt(ivb, at + 4))).filename();
    return map;
}

TEST(HelpCompiler, TakesTheHeaderAsItsMap) {
    if (std::system("command -v chmcmd chmls >/dev/null 2>&1") != 0) {
        // Every place that runs the whole suite has the package; a run without it must not look like one.
        GTEST_SKIP()
            << "NOT TESTED against a help compiler: chmcmd and chmls (package fp-utils) are not there";
    }
    const TemporaryFolder folder;
    HelpIndex index;
    index.designers = {"frmMain", "frmOther"};
    for (int i = 0; i < 40; ++i) {
        const std::string name{'I',
                               'D',
                               'H',
                               '_',
                               'A',
                               'A',
                               static_cast<char>('A' + (i + 1) / 26),
                               static_cast<char>('A' + (i + 1) % 26)};
        index.entries.push_back({1 + i / 20, name, "ctl", "TextBox", ""});
    }
    ASSERT_TRUE(
        SaveIndexFiles((folder.path() / "a.hcnf").string(), (folder.path() / "ids.h").string(), index));
    const auto defines = test::readHelpMap(folder.read("ids.h"));
    ASSERT_EQ(defines.size(), 41U);

    std::string project =
        "[OPTIONS]\r\nCompiled file=help.chm\r\nDefault topic=IDH_AAAA.htm\r\nTitle=Test\r\n\r\n[FILES]\r\n";
    std::string aliases;
    for (const auto& [name, number] : defines) {
        folder.write(name + ".htm",
                     "<html><head><title>" + name + "</title></head><body>" + name + "</body></html>\r\n");
        project += name + ".htm\r\n";
        aliases += name + "=" + name + ".htm\r\n";
    }
    folder.write("help.hhp", project + "\r\n[ALIAS]\r\n" + aliases + "\r\n[MAP]\r\n#include ids.h\r\n");
    ASSERT_TRUE(runIn(folder, "chmcmd help.hhp")) << folder.read("log");
    ASSERT_TRUE(
        runIn(folder, "chmls extract help.chm '/#IVB' ivb && chmls extract help.chm '/#STRINGS' strings"))
        << folder.read("log");

    const auto map = mapOf(folder.read("ivb"), folder.read("strings"));
    EXPECT_EQ(map.size(), defines.size());
    for (const auto& [name, number] : defines) {
        ASSERT_EQ(map.count(number), 1U) << number;
        EXPECT_EQ(map.at(number), name + ".htm");
    }
}

} // namespace
} // namespace corvelle::indexer

#endif

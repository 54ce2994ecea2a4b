#include "faults/folder_state.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace corvelle::test {

namespace fs = std::filesystem;

namespace {

constexpr auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_exec;

} // namespace

// "11/21/2026 2:43:10 AM"
std::string withoutTime(std::string bytes) {
    for (const char* const half : {" AM", " PM"}) {
        const auto end = bytes.find(half);
        if (end == std::string::npos || end == 0) continue;
        const auto before = bytes.find_last_not_of("0123456789/: ", end - 1);
        // The colon of a key in front belongs to the key.
        const auto begin = bytes.find_first_of("0123456789", before == std::string::npos ? 0 : before);
        bytes.replace(begin, end + 3 - begin, "#");
    }
    return bytes;
}

InMemory::InMemory() {
    const char* const inMemory = "/dev/shm";
    if (fs::is_directory(inMemory)) ::setenv("TMPDIR", inMemory, 1);
}

InMemory::~InMemory() {
    ::unsetenv("TMPDIR");
}

Files filesIn(const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_directory()) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        std::string bytes(std::istreambuf_iterator<char>(file), {});
        bytes = withoutTime(std::move(bytes));
        files[fs::relative(entry.path(), folder).generic_string()] = std::move(bytes);
    }
    return files;
}

void put(const fs::path& folder, const Files& files) {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry.path());
    for (const auto& [name, bytes] : files) {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        fs::permissions(folder / name, permissions);
    }
}

void expectOldOrNew(const Files& before, const Files& whole, const Files& now) {
    for (const auto& [name, bytes] : before) EXPECT_EQ(now.count(name), 1U) << name << " has gone";
    for (const auto& [name, bytes] : now) {
        const auto old = before.find(name);
        if (old != before.end() && old->second == bytes) continue;
        const auto wanted = whole.find(name);
        ASSERT_NE(wanted, whole.end()) << name << " was left behind, or is neither old nor new: " << bytes;
        EXPECT_EQ(bytes, wanted->second) << name;
    }
}

void expectPermissionsKept(const fs::path& folder, const Files& before) {
    for (const auto& [name, bytes] : before)
        EXPECT_EQ(fs::status(folder / name).permissions(), permissions) << name;
}

} // namespace corvelle::test

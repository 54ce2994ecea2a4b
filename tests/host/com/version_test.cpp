#include "host/com/dll.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::host::test {
namespace {

TEST(Version, SaysWhatTheFileIs) {
    const std::wstring path = Dll::path();
    DWORD ignored = 0;
    std::vector<char> resource(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    ASSERT_FALSE(resource.empty());
    ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()));
    const auto text = [&resource](const std::wstring& name) -> std::wstring {
        void* value = nullptr;
        UINT length = 0;
        const std::wstring block = L"\\StringFileInfo\\040904E4\\" + name; // English, code page 1252
        if (!VerQueryValueW(resource.data(), block.c_str(), &value, &length)) return L"(none)";
        return static_cast<const wchar_t*>(value);
    };
    EXPECT_EQ(text(L"ProductName"), L"Trellis");
    EXPECT_EQ(text(L"FileVersion"), L"1.00.0007");
    EXPECT_EQ(text(L"ProductVersion"), L"1.00.0007");
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(resource.data(), L"\\", &value, &length));
    const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(value);
    for (const auto& [high, low] : {std::pair{numbers.dwFileVersionMS, numbers.dwFileVersionLS},
                                    std::pair{numbers.dwProductVersionMS, numbers.dwProductVersionLS}}) {
        EXPECT_EQ(high, DWORD{MAKELONG(0, 1)});
        EXPECT_EQ(low, DWORD{MAKELONG(7, 0)});
    }
}

} // namespace
} // namespace corvelle::host::test

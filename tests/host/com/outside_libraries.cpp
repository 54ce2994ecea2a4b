#include "host/com/outside_libraries.h"

#include "com/bstr.h"
#include "places.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::host::test {

OutsideLibraries::OutsideLibraries() {
    provide("VB6EXT.OLB");
    provide("MSO97RT.DLL");
}

OutsideLibraries::~OutsideLibraries() {
    for (const TLIBATTR& of : registered_) {
        EXPECT_EQ(UnRegisterTypeLib(of.guid, of.wMajorVerNum, of.wMinorVerNum, of.lcid, of.syskind), S_OK);
    }
}

void OutsideLibraries::provide(const char* file) {
    const com::Bstr path(std::string_view(std::string(TYPE_LIBRARIES) + "/" + file));
    com::Ptr<ITypeLib> library, present;
    ASSERT_EQ(LoadTypeLibEx(path.get(), REGKIND_NONE, library.receive()), S_OK) << file;
    TLIBATTR* found = nullptr;
    ASSERT_EQ(library->GetLibAttr(&found), S_OK);
    const TLIBATTR of = *found;
    library->ReleaseTLibAttr(found);
    if (SUCCEEDED(LoadRegTypeLib(of.guid, of.wMajorVerNum, of.wMinorVerNum, of.lcid, present.receive())))
        return;
    std::wstring full(MAX_PATH, L'\0');
    full.resize(GetFullPathNameW(path.get(), MAX_PATH, full.data(), nullptr));
    ASSERT_EQ(RegisterTypeLib(library.get(), full.data(), nullptr), S_OK) << file;
    registered_.push_back(of);
}

} // namespace corvelle::host::test

#include "host/com/dll.h"
#include "host/com/outside_libraries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace corvelle::host::test {
namespace {

using testing::ElementsAre;

std::wstring textOf(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return text;
}

std::wstring taken(com::Bstr& text) {
    return text.get() ? text.get() : L"";
}

/// A type of the library.
struct Type {
    explicit Type(com::Ptr<ITypeInfo> type) : information(std::move(type)) {
        TYPEATTR* found = nullptr;
        EXPECT_EQ(information->GetTypeAttr(&found), S_OK);
        attributes = *found;
        information->ReleaseTypeAttr(found);
    }

    std::wstring name(MEMBERID member = MEMBERID_NIL) const {
        com::Bstr result;
        information->GetDocumentation(member, result.receive(), nullptr, nullptr, nullptr);
        return taken(result);
    }
    std::wstring help() const {
        com::Bstr result;
        information->GetDocumentation(MEMBERID_NIL, nullptr, result.receive(), nullptr, nullptr);
        return taken(result);
    }
    /// The other side of a dual interface, which has flags that the late-bound one lacks.
    Type asInterface() const {
        HREFTYPE reference = 0;
        com::Ptr<ITypeInfo> other;
        EXPECT_EQ(information->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
        EXPECT_EQ(information->GetRefTypeInfo(reference, other.receive()), S_OK);
        return Type(other);
    }
    /// "LIBRARY.NAME {IID} FLAGS" of what it implements or derives from.
    std::wstring implemented(UINT index) const {
        HREFTYPE reference = 0;
        INT flags = 0;
        EXPECT_EQ(information->GetRefTypeOfImplType(index, &reference), S_OK);
        EXPECT_EQ(information->GetImplTypeFlags(index, &flags), S_OK);
        return nameOf(reference) + L" " + std::to_wstring(flags);
    }
    std::wstring nameOf(HREFTYPE reference) const {
        com::Ptr<ITypeInfo> other;
        if (FAILED(information->GetRefTypeInfo(reference, other.receive()))) return L"?";
        com::Ptr<ITypeLib> library;
        UINT place = 0;
        other->GetContainingTypeLib(library.receive(), &place);
        com::Bstr libraryName;
        library->GetDocumentation(-1, libraryName.receive(), nullptr, nullptr, nullptr);
        const Type type(other);
        return taken(libraryName) + L"." + type.name() + L" " + textOf(type.attributes.guid);
    }
    /// "{LIBID} VERSION" of the libraries of the types that it derives from or that its members use.
    std::vector<std::wstring> librariesReferredTo() const {
        std::vector<std::wstring> result;
        for (UINT i = 0; i < attributes.cImplTypes; ++i) {
            HREFTYPE reference = 0;
            EXPECT_EQ(information->GetRefTypeOfImplType(i, &reference), S_OK);
            result.push_back(libraryOf(reference));
        }
        const auto add = [&](const TYPEDESC* type) {
            while (type->vt == VT_PTR) type = type->lptdesc;
            if (type->vt == VT_USERDEFINED) result.push_back(libraryOf(type->hreftype));
        };
        for (UINT i = 0; i < attributes.cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            EXPECT_EQ(information->GetFuncDesc(i, &function), S_OK);
            add(&function->elemdescFunc.tdesc);
            for (int p = 0; p < function->cParams; ++p) add(&function->lprgelemdescParam[p].tdesc);
            information->ReleaseFuncDesc(function);
        }
        return result;
    }
    std::wstring libraryOf(HREFTYPE reference) const {
        com::Ptr<ITypeInfo> other;
        if (FAILED(information->GetRefTypeInfo(reference, other.receive()))) return L"?";
        com::Ptr<ITypeLib> library;
        UINT place = 0;
        other->GetContainingTypeLib(library.receive(), &place);
        TLIBATTR* found = nullptr;
        EXPECT_EQ(library->GetLibAttr(&found), S_OK);
        const auto result = textOf(found->guid) + L" " + std::to_wstring(found->wMajorVerNum) + L"." +
                            std::to_wstring(found->wMinorVerNum);
        library->ReleaseTLibAttr(found);
        return result;
    }
    std::wstring typeName(const TYPEDESC& type) const {
        switch (type.vt) {
        case VT_BOOL:
            return L"Boolean";
        case VT_BSTR:
            return L"String";
        case VT_PTR:
            return typeName(*type.lptdesc) + L"*";
        case VT_USERDEFINED:
            return nameOf(type.hreftype);
        default:
            return std::to_wstring(type.vt);
        }
    }
    /// "KIND NAME(PARAMETER...) As RESULT" of each of its own members, in the order of its table of methods.
    std::vector<std::wstring> members() const {
        std::vector<std::wstring> result;
        for (UINT i = 0; i < attributes.cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            EXPECT_EQ(information->GetFuncDesc(i, &function), S_OK);
            constexpr int inherited = 7 * sizeof(void*);
            if (function->oVft >= inherited) {
                EXPECT_EQ(static_cast<std::size_t>(function->oVft),
                          inherited + result.size() * sizeof(void*));
                std::wstring text = function->invkind == INVOKE_FUNC          ? L"method "
                                    : function->invkind == INVOKE_PROPERTYGET ? L"get "
                                    : function->invkind == INVOKE_PROPERTYPUT ? L"put "
                                                                              : L"putref ";
                text += name(function->memid) + L"(";
                for (int p = 0; p < function->cParams; ++p) {
                    const ELEMDESC& parameter = function->lprgelemdescParam[p];
                    text += (p > 0 ? L", " : L"") + typeName(parameter.tdesc);
                }
                text += L")";
                const TYPEDESC& given = function->elemdescFunc.tdesc;
                if (given.vt != VT_VOID) text += L" As " + typeName(given);
                result.push_back(text);
            }
            information->ReleaseFuncDesc(function);
        }
        return result;
    }

    com::Ptr<ITypeInfo> information;
    TYPEATTR attributes{};
};

const wchar_t* const events = L"VBIDE._CommandBarControlEvents {0002E197-0000-0000-C000-000000000046}";
const wchar_t* const command = L"Office.CommandBarControl {000C0308-0000-0000-C000-000000000046}";
const wchar_t* const extensibility = L"VBIDE.IDTExtensibility {0002E151-0000-0000-C000-000000000046} 0";

/// The type library inside the DLL.
class TypeLibrary : public testing::Test {
  protected:
    TypeLibrary() { EXPECT_EQ(LoadTypeLibEx(Dll::path().c_str(), REGKIND_NONE, library.receive()), S_OK); }

    Type type(const wchar_t* id) const {
        GUID guid;
        EXPECT_EQ(IIDFromString(id, &guid), S_OK);
        com::Ptr<ITypeInfo> found;
        EXPECT_EQ(library->GetTypeInfoOfGuid(guid, found.receive()), S_OK) << id;
        return Type(found);
    }

    Apartment apartment;
    OutsideLibraries outside;
    com::Ptr<ITypeLib> library;
};

constexpr WORD hiddenDual = TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;

TEST_F(TypeLibrary, HasItsIdentity) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(textOf(attributes->guid), L"{62F4B4DD-0200-11D9-B84C-9DC4C37C905E}");
    EXPECT_EQ(attributes->wMajorVerNum, 8);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 0x409U);
    library->ReleaseTLibAttr(attributes);
    com::Bstr name, help, helpFile;
    library->GetDocumentation(-1, name.receive(), help.receive(), nullptr, helpFile.receive());
    EXPECT_EQ(taken(name), L"Corvelle");
    EXPECT_EQ(taken(help), L"Trellis");
    const std::wstring file = taken(helpFile);
    EXPECT_EQ(file.substr(file.find_last_of(L'\\') + 1), L"FormatterHelp.chm");
}

TEST_F(TypeLibrary, RefersToThreeOutsideLibraries) {
    std::set<std::wstring> libraries;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        com::Ptr<ITypeInfo> found;
        ASSERT_EQ(library->GetTypeInfo(i, found.receive()), S_OK);
        for (const std::wstring& one : Type(found).librariesReferredTo()) libraries.insert(one);
    }
    libraries.erase(L"{62F4B4DD-0200-11D9-B84C-9DC4C37C905E} 8.0"); // itself
    EXPECT_THAT(libraries, ElementsAre(L"{00020430-0000-0000-C000-000000000046} 2.0",
                                       L"{2DF8D04C-5BFA-101B-BDE5-00AA0044DE52} 2.0",
                                       L"{EF404E00-EDA6-101A-8DAF-00DD010F7EBB} 5.3"));
}

TEST_F(TypeLibrary, DescribesTheFormattersInterface) {
    const Type type = this->type(L"{6D72C108-BF9E-45BD-BBE8-F70BEC0F7544}");
    EXPECT_EQ(type.name(), L"_CodeFormatter");
    EXPECT_EQ(type.attributes.typekind, TKIND_DISPATCH);
    EXPECT_EQ(type.attributes.wTypeFlags & hiddenDual, hiddenDual);
    EXPECT_NE(type.asInterface().attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION, 0);
    EXPECT_THAT(type.members(), ElementsAre(L"get IsLoaded() As Boolean", L"put IsLoaded(Boolean)",
                                            std::wstring(L"get MenuEvents() As ") + events + L"*",
                                            std::wstring(L"putref MenuEvents(") + events + L"*)",
                                            L"method Hide()", L"method Show()",
                                            std::wstring(L"method AddMyMenu(String) As ") + command + L"*"));
}

TEST_F(TypeLibrary, DescribesTheIndexersInterface) {
    const Type type = this->type(L"{0553F03D-4F0B-497B-9832-A30160A7A5A7}");
    EXPECT_EQ(type.name(), L"_ContextHelpIndexer");
    EXPECT_EQ(type.attributes.typekind, TKIND_DISPATCH);
    EXPECT_EQ(type.attributes.wTypeFlags & hiddenDual, hiddenDual);
    EXPECT_NE(type.asInterface().attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION, 0);
    EXPECT_THAT(type.members(),
                ElementsAre(L"get IsLoaded() As Boolean", L"put IsLoaded(Boolean)", L"get bOK() As Boolean",
                            L"put bOK(Boolean)", std::wstring(L"get MenuEvents() As ") + events + L"*",
                            std::wstring(L"putref MenuEvents(") + events + L"*)", L"method Hide()",
                            L"method Show()",
                            std::wstring(L"method AddMyMenu(String) As ") + command + L"*"));
}

TEST_F(TypeLibrary, DescribesTheClasses) {
    const Type formatter = type(L"{62F4B4DF-0200-11D9-B84C-9DC4C37C905E}");
    EXPECT_EQ(formatter.name(), L"CodeFormatter");
    EXPECT_EQ(formatter.help(), L"Trellis");
    const Type indexer = type(L"{07C23A6F-E632-4DEC-B20D-1FA0D767854A}");
    EXPECT_EQ(indexer.name(), L"ContextHelpIndexer");
    EXPECT_EQ(indexer.help(), L"VB6 Help Context ID Indexer");
    for (const Type* type : {&formatter, &indexer}) {
        EXPECT_EQ(type->attributes.typekind, TKIND_COCLASS);
        EXPECT_NE(type->attributes.wTypeFlags & TYPEFLAG_FCANCREATE, 0);
        ASSERT_EQ(type->attributes.cImplTypes, 2);
        EXPECT_EQ(type->implemented(1), extensibility);
    }
    EXPECT_EQ(formatter.implemented(0), L"Corvelle._CodeFormatter {6D72C108-BF9E-45BD-BBE8-F70BEC0F7544} 1");
    EXPECT_EQ(indexer.implemented(0),
              L"Corvelle._ContextHelpIndexer {0553F03D-4F0B-497B-9832-A30160A7A5A7} 1");
}

TEST_F(TypeLibrary, BorrowsNoTypeOfTheOutsideLibraries) {
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        com::Ptr<ITypeInfo> found;
        library->GetTypeInfo(i, found.receive());
        EXPECT_NE(Type(found).name(), L"IDTExtensibility");
        EXPECT_NE(Type(found).name(), L"CommandBarControl");
    }
}

} // namespace
} // namespace corvelle::host::test

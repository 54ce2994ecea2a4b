#include "workbench/add_in.h"

#include "base/run_time_error.h"
#include "workbench/add_ins.h"

namespace corvelle::workbench {

namespace {

using base::ErrorNumber;
using base::RunTimeError;
using com::Arguments;
using com::Variant;

/// The argument that the IDE has no use for: an array of no Variants.
class NoCustom {
  public:
    NoCustom() : array_(SafeArrayCreateVector(VT_VARIANT, 0, 0)) {}
    NoCustom(const NoCustom&) = delete;
    NoCustom& operator=(const NoCustom&) = delete;
    ~NoCustom() {
        if (array_) SafeArrayDestroy(array_);
    }
    SAFEARRAY** get() { return &array_; }

  private:
    SAFEARRAY* array_;
};

com::Ptr<IUnknown> makeObject(const std::string& progId) {
    CLSID id{};
    com::Ptr<IUnknown> object;
    if (FAILED(CLSIDFromProgID(com::Bstr(progId).get(), &id)))
        throw RunTimeError(static_cast<std::int32_t>(ErrorNumber::CannotCreateObject),
                           "It is not registered.");
    com::runTimeErrorIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                               reinterpret_cast<void**>(object.receive())));
    return object;
}

} // namespace

AddIn::AddIn(AddIns& all, ListedAddIn listed) : all_(&all), listed_(std::move(listed)) {}

AddIns& AddIn::all() const {
    if (!all_) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return *all_;
}

void AddIn::load(ConnectMode mode) {
    if (isLoaded()) return;
    const auto vbe = all().vbe();
    const auto object = makeObject(listed_.progId).queryAs<IDTExtensibility>(IID_IDTExtensibility);
    if (!object) {
        throw RunTimeError(static_cast<std::int32_t>(ErrorNumber::MemberNotSupported),
                           "It has no IDTExtensibility interface.");
    }
    extensibility_ = object; // it may ask whether it is loaded
    NoCustom custom;
    const HRESULT result = object->OnConnection(vbe.get(), static_cast<LONG>(mode), this, custom.get());
    if (SUCCEEDED(result)) return;
    extensibility_.reset();
    exposed_.reset();
    throw com::runTimeError(result);
}

void AddIn::unload(DisconnectMode mode) {
    if (!isLoaded()) return;
    const auto object = std::move(extensibility_); // once, whatever comes in between
    NoCustom custom;
    object->OnDisconnection(static_cast<LONG>(mode), custom.get());
    exposed_.reset();
}

void AddIn::addInsUpdated() {
    NoCustom custom;
    if (const auto object = extensibility_) object->OnAddInsUpdate(custom.get());
}

void AddIn::startupCompleted() {
    NoCustom custom;
    if (const auto object = extensibility_) object->OnStartupComplete(custom.get());
}

const std::array<com::Member<AddIn>, 9>& AddIn::members() {
    using com::propertyGet;
    using com::propertyPut;
    static const std::array<com::Member<AddIn>, 9> all{{
        {L"Description", 0, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.listed_.description); }},
        {L"Description", 0, propertyPut, 1, 1,
         [](AddIn& self, const Arguments& given) {
             self.listed_.description = given.text(0);
             return Variant();
         }},
        {L"VBE", 1, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.all().vbe()); }},
        {L"Collection", 2, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.all().collection()); }},
        {L"ProgId", 3, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.listed_.progId); }},
        {L"Connect", 6, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.isLoaded()); }},
        {L"Connect", 6, propertyPut, 1, 1,
         [](AddIn& self, const Arguments& given) {
             self.all().connect(self, given.boolean(0));
             return Variant();
         }},
        {L"Object", 7, propertyGet, 0, 0,
         [](AddIn& self, const Arguments&) { return Variant(self.exposed_); }},
        {L"Object", 7, propertyPut, 1, 1,
         [](AddIn& self, const Arguments& given) {
             self.exposed_ = given.object(0);
             return Variant();
         }},
    }};
    return all;
}

} // namespace corvelle::workbench

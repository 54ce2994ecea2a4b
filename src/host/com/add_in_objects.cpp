#include "host/com/add_in_objects.h"

#include "com/bstr.h"
#include "host/code_formatter.h"
#include "host/com/dual_object.h"
#include "host/com/extensibility.h"
#include "host/com/module_desktop.h"
#include "host/context_help_indexer.h"
#include "ide/automation/automation.h"

#include <corvelle.h>

namespace corvelle::host {

namespace {

VARIANT_BOOL variantBool(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

// The object as one of the interface; an object that does not know the interface is given as it is, which
// will do for every late-bound caller.
template <class Interface, class Known>
Interface* as(const com::Ptr<Known>& object) {
    auto found = object.template query<Interface>();
    if (!found) found = object.template queryAs<Interface>(__uuidof(Known));
    return found.release();
}

/// A connect object: the default interface of its class over the add-in.
template <class Interface, class Class>
class ConnectObject : public DualObject<Interface> {
  public:
    HRESULT STDMETHODCALLTYPE get_IsLoaded(VARIANT_BOOL* value) override {
        if (!value) return E_POINTER;
        *value = variantBool(addIn_->IsLoaded());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_IsLoaded(VARIANT_BOOL value) override {
        addIn_->setIsLoaded(value != VARIANT_FALSE);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_MenuEvents(_CommandBarControlEvents** value) override {
        if (!value) return E_POINTER;
        *value = nullptr;
        return com::guarded(
            [&] { *value = as<_CommandBarControlEvents>(automation::objectOf(addIn_->MenuEvents())); });
    }
    HRESULT STDMETHODCALLTYPE putref_MenuEvents(_CommandBarControlEvents* value) override {
        return com::guarded([&] { addIn_->setMenuEvents(automation::commandBarEvents(value)); });
    }
    HRESULT STDMETHODCALLTYPE Hide() override {
        const com::Ptr<Interface> alive(this);
        return com::guarded([&] { addIn_->Hide(); });
    }
    HRESULT STDMETHODCALLTYPE Show() override {
        const com::Ptr<Interface> alive(this); // our owner may let go of us meanwhile
        return com::guarded([&] { addIn_->Show(); });
    }
    HRESULT STDMETHODCALLTYPE AddMyMenu(BSTR MenuCaption, CommandBarControl** command) override {
        if (!command) return E_POINTER;
        *command = nullptr;
        return com::guarded([&] {
            const auto added = addIn_->AddMyMenu(com::textOf(MenuCaption));
            *command = as<CommandBarControl>(automation::objectOf(added));
        });
    }

  protected:
    void* find(REFIID iid) override {
        if (IsEqualIID(iid, __uuidof(IDTExtensibility)))
            return static_cast<IDTExtensibility*>(&extensibility_);
        return DualObject<Interface>::find(iid);
    }
    Class& addIn() { return *addIn_; }

  private:
    std::shared_ptr<forms::Desktop> desktop_ = useDesktop();
    std::shared_ptr<Class> addIn_ = std::make_shared<Class>(*desktop_);
    Extensibility extensibility_{static_cast<Interface&>(*this), addIn_};
};

using CodeFormatterObject = ConnectObject<_CodeFormatter, CodeFormatter>;

class ContextHelpIndexerObject : public ConnectObject<_ContextHelpIndexer, ContextHelpIndexer> {
  public:
    HRESULT STDMETHODCALLTYPE get_bOK(VARIANT_BOOL* value) override {
        if (!value) return E_POINTER;
        *value = variantBool(addIn().bOK());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_bOK(VARIANT_BOOL value) override {
        addIn().setbOK(value != VARIANT_FALSE);
        return S_OK;
    }
};

template <class Object>
com::Ptr<IUnknown> makeObject() {
    return com::make<Object>().template query<IUnknown>();
}

} // namespace

com::Ptr<IUnknown> makeCodeFormatter() {
    return makeObject<CodeFormatterObject>();
}

com::Ptr<IUnknown> makeContextHelpIndexer() {
    return makeObject<ContextHelpIndexerObject>();
}

} // namespace corvelle::host

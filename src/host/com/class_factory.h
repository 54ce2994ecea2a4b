#pragma once

#include "com/object.h"
#include "host/com/class_table.h"

#include <unknwn.h>

namespace corvelle::host {

/// Makes the objects of one class of the table; only a class that can be part of an aggregate takes an outer
/// unknown.
class ClassFactory : public com::Object<IClassFactory> {
  public:
    explicit ClassFactory(const ComClass& made) : made_(made) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    const ComClass& made_;
};

} // namespace corvelle::host

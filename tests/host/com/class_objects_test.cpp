#include "host/com/dll.h"

#include <gtest/gtest.h>
#include <thread>
#include <vbide.h>

namespace corvelle::host::test {
namespace {

/// The DLL's exports and what it makes.
class ClassObjects : public testing::Test {
  protected:
    ~ClassObjects() override { EXPECT_EQ(dll.canUnloadNow(), S_OK); }

    Apartment apartment;
    Dll dll;
};

TEST_F(ClassObjects, AreGivenForTheClassesOfTheDllOnly) {
    for (const CLSID& id : {formatterClass, indexerClass}) {
        com::Ptr<IClassFactory> factory;
        EXPECT_EQ(dll.getClassObject(id, IID_IClassFactory, reinterpret_cast<void**>(factory.receive())),
                  S_OK);
        EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
        void* other = &factory;
        EXPECT_EQ(dll.getClassObject(id, IID_IDispatch, &other), E_NOINTERFACE);
        EXPECT_EQ(other, nullptr);
    }
    void* none = this;
    EXPECT_EQ(dll.getClassObject(IID_IUnknown, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(dll.getClassObject(formatterClass, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassObjects, LockTheDllAndRefuseToAggregate) {
    com::Ptr<IClassFactory> factory;
    dll.getClassObject(formatterClass, IID_IClassFactory, reinterpret_cast<void**>(factory.receive()));
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    void* object = this;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    factory.reset();
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    dll.getClassObject(formatterClass, IID_IClassFactory, reinterpret_cast<void**>(factory.receive()));
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST_F(ClassObjects, ConnectObjectsAreOneObjectBehindAllInterfaces) {
    for (const CLSID& id : {formatterClass, indexerClass}) {
        const auto object = dll.make(id);
        ASSERT_TRUE(object);
        EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
        const auto dispatch = object.query<IDispatch>();
        const auto extensibility = object.query<IDTExtensibility>();
        const auto errors = object.query<ISupportErrorInfo>();
        ASSERT_TRUE(dispatch && extensibility && errors);
        EXPECT_TRUE(com::isSameObject(object, dispatch));
        EXPECT_TRUE(com::isSameObject(object, extensibility));
        EXPECT_TRUE(com::isSameObject(object, errors));
        EXPECT_TRUE(com::isSameObject(object, extensibility.query<IDispatch>()));
        EXPECT_FALSE(object.query<IClassFactory>());
        EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
        UINT count = 0;
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1U);
        com::Ptr<ITypeInfo> type;
        EXPECT_EQ(dispatch->GetTypeInfo(0, 0, type.receive()), S_OK);
        EXPECT_TRUE(type);
        EXPECT_EQ(dispatch->GetTypeInfo(1, 0, type.receive()), DISP_E_BADINDEX);
    }
}

TEST_F(ClassObjects, BelongToOneThreadUntilAllAreGone) {
    auto object = dll.make(formatterClass);
    const auto isMadeOnAnotherThread = [&] {
        bool made = false;
        std::thread([&] {
            const Apartment other;
            made = static_cast<bool>(dll.make(indexerClass));
            EXPECT_EQ(dll.canUnloadNow(), made ? S_OK : S_FALSE);
        }).join();
        return made;
    };
    EXPECT_FALSE(isMadeOnAnotherThread());
    object.reset();
    EXPECT_FALSE(isMadeOnAnotherThread());
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
    EXPECT_TRUE(isMadeOnAnotherThread());
    EXPECT_TRUE(dll.make(formatterClass));
}

} // namespace
} // namespace corvelle::host::test

#include <gtest/gtest.h>

#include <ocidl.h>

#include "com/LoadedServer.h"

namespace pellmark {
namespace {

class EntryPointsTest : public testing::Test {
  protected:
    Apartment apartment_;
    LoadedServer server_;
};

TEST_F(EntryPointsTest, AClassThatIsNotOursIsRefusedAtOnce) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(server_.getClassObject(IID_IDispatch, IID_IClassFactory, factory.receiveVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(factory);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_F(EntryPointsTest, AnInterfaceThatAFactoryLacksIsRefused) {
    ComPtr<IUnknown> object;
    EXPECT_EQ(server_.getClassObject(CLSID_Application, IID_IDispatch, object.receiveVoid()), E_NOINTERFACE);
    EXPECT_EQ(server_.getClassObject(CLSID_Application, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_F(EntryPointsTest, ObjectsAreMadeWithoutRegistration) {
    const ComPtr<_Application> object = server_.create();
    ::FRView view = FRProcesscase;
    EXPECT_EQ(object->get_CurrentView(&view), S_OK);
    EXPECT_EQ(view, FRProcesses);
}

TEST_F(EntryPointsTest, AnObjectCannotBePartOfAnother) {
    const ComPtr<_Application> outer = server_.create();
    ComPtr<IUnknown> object;
    EXPECT_EQ(server_.factory()->CreateInstance(outer.get(), IID_IUnknown, object.receiveVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_FALSE(object);
}

TEST_F(EntryPointsTest, AnInterfaceThatTheObjectLacksLeavesNoObjectBehind) {
    ComPtr<IUnknown> object;
    EXPECT_EQ(server_.factory()->CreateInstance(nullptr, IID_IPersist, object.receiveVoid()), E_NOINTERFACE);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_F(EntryPointsTest, TheDllStaysWhileAnObjectAFactoryOrALockIsLeft) {
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
    ComPtr<IClassFactory> factory = server_.factory();
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    factory->LockServer(TRUE);
    factory = nullptr;
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    server_.factory()->LockServer(FALSE);
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
    ComPtr<_Application> object = server_.create();
    EXPECT_EQ(server_.canUnloadNow(), S_FALSE);
    object = nullptr;
    EXPECT_EQ(server_.canUnloadNow(), S_OK);
}

TEST_F(EntryPointsTest, ReferencesAreCounted) {
    const ComPtr<_Application> object = server_.create();
    EXPECT_EQ(object->AddRef(), 2U);
    ComPtr<IDispatch> dispatch = object.query<IDispatch>();
    EXPECT_EQ(object->AddRef(), 4U);
    EXPECT_EQ(object->Release(), 3U);
    dispatch = nullptr;
    EXPECT_EQ(object->Release(), 1U);
}

TEST_F(EntryPointsTest, TheObjectDescribesItselfFromTheLibraryInTheDll) {
    const ComPtr<_Application> object = server_.create();
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->guid, IID__Application);
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.receive()), DISP_E_BADINDEX);
}

TEST_F(EntryPointsTest, TheObjectNamesItsClass) {
    const ComPtr<IProvideClassInfo> provider = server_.create().query<IProvideClassInfo>();
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->guid, CLSID_Application);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    info->ReleaseTypeAttr(attributes);
}

TEST_F(EntryPointsTest, AnInstallationForWhoeverElseIsRefused) {
    EXPECT_EQ(server_.install(TRUE, L"everybody"), E_INVALIDARG);
}

}  // namespace
}  // namespace pellmark

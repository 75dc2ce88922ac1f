// The library as COM sees it: exports, class factories, classes with and without registration, unloading.
#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);

/// The library's own entry, as COM calls it.
ComPtr<IClassFactory> FactoryOf(REFCLSID id) {
    ControlLibrary().Create(kControl);  // loads it
    const auto getClassObject = Export<GetClassObject>("DllGetClassObject");
    ComPtr<IClassFactory> factory;
    if (getClassObject != nullptr) getClassObject(id, IID_PPV_ARGS(&factory));
    return factory;
}

struct ClassCase {
    const wchar_t* name;
    CLSID id;
    IID interfaceId;
    friend void PrintTo(const ClassCase& test, std::ostream* out) {
        *out << testing::PrintToString(std::wstring(test.name));
    }
};

class EveryClass : public testing::TestWithParam<ClassCase> {};

TEST_P(EveryClass, IsMadeByItsFactoryAndByItsProgId) {
    const std::wstring progId = std::wstring(L"DashlonViewer.") + GetParam().name;
    for (const std::wstring& name : {progId, progId + L".2"}) {
        ComPtr<IUnknown> made;
        EXPECT_EQ(ControlLibrary().Create(name.c_str()).CopyTo(GetParam().interfaceId, &made), S_OK)
            << testing::PrintToString(name);
    }

    const ComPtr<IClassFactory> factory = FactoryOf(GetParam().id);
    ASSERT_TRUE(factory);
    ComPtr<IUnknown> made;
    EXPECT_EQ(factory->CreateInstance(nullptr, GetParam().interfaceId,
                                      reinterpret_cast<void**>(made.GetAddressOf())),
              S_OK);
    EXPECT_TRUE(made);
    ComPtr<IUnknown> none;
    EXPECT_EQ(factory->CreateInstance(made.Get(), IID_PPV_ARGS(&none)), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStorage, reinterpret_cast<void**>(none.GetAddressOf())),
              E_NOINTERFACE);
    EXPECT_FALSE(none);
}

INSTANTIATE_TEST_SUITE_P(
    All, EveryClass,
    testing::Values(ClassCase{L"DLViewer", __uuidof(::DLViewer), __uuidof(_DLViewer)},
                    ClassCase{L"DLVParams", __uuidof(::DLVParams), __uuidof(_DLVParams)},
                    ClassCase{L"QZWebMessage", __uuidof(::QZWebMessage), __uuidof(_QZWebMessage)},
                    ClassCase{L"QZWebData", __uuidof(::QZWebData), __uuidof(_QZWebData)},
                    ClassCase{L"QZWebTable", __uuidof(::QZWebTable), __uuidof(_QZWebTable)},
                    ClassCase{L"QZWebProfiles", __uuidof(::QZWebProfiles), __uuidof(_QZWebProfiles)},
                    ClassCase{L"QZWebProfile", __uuidof(::QZWebProfile), __uuidof(_QZWebProfile)}));

TEST(Server, MakesNoObjectsOfClassesThatArePartsOnly) {
    EXPECT_FALSE(FactoryOf(__uuidof(::QZWebRow)));
    EXPECT_FALSE(FactoryOf(__uuidof(::QZWebSection)));
    EXPECT_FALSE(FactoryOf(IID_IUnknown));
}

TEST(Server, MayBeUnloadedOnceNothingOfItIsHeld) {
    ComPtr<IUnknown> object = ControlLibrary().Create(L"DashlonViewer.QZWebTable");
    EXPECT_EQ(CanUnload(), S_FALSE);
    object.Reset();
    EXPECT_EQ(CanUnload(), S_OK);

    ComPtr<IClassFactory> factory = FactoryOf(__uuidof(::DLVParams));
    ASSERT_TRUE(factory);
    EXPECT_EQ(CanUnload(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(CanUnload(), S_FALSE);
    factory = FactoryOf(__uuidof(::DLVParams));
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.Reset();
    EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace dlv::test

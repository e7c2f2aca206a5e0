#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "com/DuringModal.h"
#include "com/LoadedServer.h"
#include "com/TestObject.h"
#include "com/adapters/ScriptedObject.h"
#include "support/win32/ActivatedManifest.h"
#include "support/win32/ResourceCounts.h"

namespace pellmark {
namespace {

using test::ResourceCounts;

BOOL CALLBACK countWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int windowsOfThisThread() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), &countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

int childrenOf(HWND window) {
    int count = 0;
    EnumChildWindows(window, &countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

/// A host window, a host object that names it, and the host's library through its manifest.
class LifetimeTest : public testing::Test {
  protected:
    LifetimeTest() {
        host_->set(L"MainWindowHandle", static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_)));
        owner_->set(L"hWnd", static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_)));
        host_->set(L"InstallationFolder", "C:\\Norvex\\");
        host_->set(L"CurrentUnit", std::int16_t{71});
        const ComPtr<TestObject> settings = TestObject::make();
        settings->set(L"LanguageCode", std::int16_t{0});
        host_->set(L"LanguageSettings", ComPtr<IDispatch>(settings.get()));
    }
    ~LifetimeTest() override { DestroyWindow(window_); }

    static void SetUpTestSuite() {
        // a knowledge base of the test's own, seeded by the host's library
        SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", (programFolder() + L"\\lifetime-test.db").c_str());
    }
    static void TearDownTestSuite() { SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", nullptr); }

    ComPtr<_Application> showOnce() {
        ComPtr<_Application> object = server_->create();
        IDispatch* host = host_.get();
        VARIANT result;
        EXPECT_EQ(object->ShowWindowProcessesView(&host, nullptr, &result), S_OK);
        return object;
    }
    std::string pick(_Application* object) {
        IDispatch* host = host_.get();
        IDispatch* owner = owner_.get();
        Bstr picked;
        EXPECT_EQ(object->OpenProcess(&host, &owner, nullptr, 71, -1, nullptr, nullptr, nullptr, -1, nullptr,
                                      nullptr, picked.receive()),
                  S_OK);
        return picked.utf8();
    }
    void dispatchMessages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    void useOnce(bool dispose) {
        ComPtr<_Application> object = showOnce();
        dispatchMessages();
        VARIANT result;
        if (dispose) object->Dispose(&result);
        object = nullptr;
        dispatchMessages();
    }

    Apartment apartment_;
    test::ActivatedManifest manifest_{programFolder() + L"\\Norvex.manifest"};
    std::optional<LoadedServer> server_{std::in_place};
    HWND window_ = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700,
                                   nullptr, nullptr, nullptr, nullptr);
    ComPtr<TestObject> host_ = TestObject::make();
    ComPtr<TestObject> owner_ = TestObject::make();
};

TEST_F(LifetimeTest, TheViewStandsInsideTheHostsWindowUntilDispose) {
    const ComPtr<_Application> object = showOnce();
    EXPECT_GT(childrenOf(window_), 1);
    VARIANT result;
    object->Dispose(&result);
    EXPECT_EQ(childrenOf(window_), 0);
}

TEST_F(LifetimeTest, ReleasingWithoutDisposeTakesTheViewAwayToo) {
    useOnce(false);
    EXPECT_EQ(childrenOf(window_), 0);
}

TEST_F(LifetimeTest, AHostThatDestroysItsWindowFirstCanStillDispose) {
    const ComPtr<_Application> object = showOnce();
    DestroyWindow(window_);
    dispatchMessages();
    VARIANT result;
    EXPECT_EQ(object->Dispose(&result), S_OK);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(LifetimeTest, TwoComponentsShareAHostsWindowAndGoOneByOne) {
    ComPtr<_Application> first = showOnce();
    const int ofOne = childrenOf(window_);
    const ComPtr<_Application> second = showOnce();
    EXPECT_EQ(childrenOf(window_), 2 * ofOne);
    first = nullptr;
    EXPECT_EQ(childrenOf(window_), ofOne);
}

TEST_F(LifetimeTest, APickerThatIsClosedPicksNothingAndLeavesTheHostUsable) {
    const ComPtr<_Application> object = server_->create();
    const DuringModal closing(window_);
    EXPECT_EQ(pick(object.get()), "");
    EXPECT_TRUE(closing.wasShown());
    EXPECT_TRUE(IsWindowEnabled(window_));
}

TEST_F(LifetimeTest, ThePickerStandsOverTheViewThatIsShownAlready) {
    const ComPtr<_Application> object = showOnce();
    const DuringModal closing(window_);
    EXPECT_EQ(pick(object.get()), "");
    EXPECT_TRUE(closing.wasShown());
    EXPECT_GT(childrenOf(window_), 1);
}

TEST_F(LifetimeTest, AHostThatDisposesWhileAPickerIsUpIsServedWhenThePickerIsClosed) {
    const ComPtr<_Application> object = server_->create();
    const DuringModal disposing(window_, [&] {
        VARIANT result;
        EXPECT_EQ(object->Dispose(&result), S_OK);
    });
    EXPECT_EQ(pick(object.get()), "");
    EXPECT_TRUE(disposing.wasShown());
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(LifetimeTest, AHostThatLetsGoWhileAPickerIsUpIsServedWhenThePickerIsClosed) {
    ComPtr<_Application> object = server_->create();
    _Application* const raw = object.get();
    const DuringModal releasing(window_, [&] { object = nullptr; });
    EXPECT_EQ(pick(raw), "");
    EXPECT_TRUE(releasing.wasShown());
    EXPECT_EQ(server_->canUnloadNow(), S_OK);
    EXPECT_EQ(host_->references(), 1U);
}

/// The same with a host whose members run code of the test, once, when the component reads one.
class ReenteringHostTest : public LifetimeTest {
  protected:
    ReenteringHostTest() {
        const auto handle = static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_));
        const ComPtr<TestObject> settings = TestObject::make();
        settings->set(L"LanguageCode", std::int16_t{0});
        member(L"MainWindowHandle", handle);
        member(L"InstallationFolder", "C:\\Norvex\\");
        member(L"CurrentUnit", std::int16_t{71});
        member(L"LanguageSettings", ComPtr<IDispatch>(settings.get()));
    }

    void member(const wchar_t* name, const VariantArg& value) {
        reentering_->on(name, [this, name = std::wstring(name), value](const auto&) {
            if (name == from_ && action_) {
                ++runs_;
                const auto once = std::exchange(action_, {});
                once();
            }
            return value;
        });
    }
    HRESULT show(_Application* object) {
        IDispatch* host = reentering_.get();
        VARIANT result;
        return object->ShowWindowProcessesView(&host, nullptr, &result);
    }
    HRESULT showCase(_Application* object) {
        IDispatch* host = reentering_.get();
        SAFEARRAY* values = nullptr;
        VARIANT result;
        return object->ShowWindowProcessCaseView(&host, &values, -1, -1, nullptr, nullptr, nullptr, -1,
                                                 nullptr, nullptr, &result);
    }
    /// What a host might ask for from inside a member that the component reads.
    std::vector<std::function<void()>> everyCall() {
        const auto modal = [this](auto method) {
            IDispatch* host = reentering_.get();
            IDispatch* owner = nullptr;
            VARIANT result;
            EXPECT_EQ((object_.get()->*method)(&host, &owner, nullptr, -1, -1, nullptr, nullptr, nullptr, -1,
                                               nullptr, nullptr, &result),
                      S_OK);
        };
        const auto picking = [this](auto method) {
            IDispatch* host = reentering_.get();
            IDispatch* owner = nullptr;
            Bstr result;
            EXPECT_EQ((object_.get()->*method)(&host, &owner, nullptr, -1, -1, nullptr, nullptr, nullptr, -1,
                                               nullptr, nullptr, result.receive()),
                      S_OK);
        };
        return {[this] { EXPECT_EQ(show(object_.get()), S_OK); },
                [this] { EXPECT_EQ(showCase(object_.get()), S_OK); },
                [=] { picking(&_Application::OpenProcess); },
                [=] { picking(&_Application::OpenFeatureCase); },
                [=] { modal(&_Application::EditFeatureCase); },
                [=] { modal(&_Application::EditProcess); },
                [this] {
                    VARIANT result;
                    EXPECT_EQ(object_->Dispose(&result), S_OK);
                },
                [this] { object_ = nullptr; },
                [this] { std::thread([this] { object_ = nullptr; }).join(); }};
    }

    ComPtr<test::ScriptedObject> reentering_ = test::ScriptedObject::make();
    ComPtr<_Application> object_;
    std::wstring from_;
    std::function<void()> action_;
    int runs_ = 0;
};

TEST_F(ReenteringHostTest, EveryCallFromInsideEveryMemberIsSurvived) {
    for (const wchar_t* from :
         {L"MainWindowHandle", L"InstallationFolder", L"CurrentUnit", L"LanguageSettings"}) {
        for (const auto& action : everyCall()) {
            from_ = from;
            action_ = action;
            object_ = server_->create();
            _Application* const raw = object_.get();
            EXPECT_EQ(showCase(raw), S_OK);
            dispatchMessages();
            action_ = nullptr;
            object_ = nullptr;
            dispatchMessages();
            EXPECT_EQ(childrenOf(window_), 0);
            EXPECT_EQ(reentering_->references(), 1U);
            EXPECT_EQ(server_->canUnloadNow(), S_OK);
        }
    }
    EXPECT_GE(runs_, 27);
}

TEST_F(LifetimeTest, AReleaseOnAnotherThreadTakesTheViewAwayOnTheThreadOfTheObject) {
    ComPtr<_Application> object = showOnce();
    std::thread([&] { object = nullptr; }).join();
    EXPECT_EQ(server_->canUnloadNow(), S_FALSE);
    dispatchMessages();
    EXPECT_EQ(childrenOf(window_), 0);
    EXPECT_EQ(host_->references(), 1U);
    EXPECT_EQ(server_->canUnloadNow(), S_OK);
}

TEST_F(LifetimeTest, AReleaseOnAnotherThreadWhileAPickerIsUpIsServedWhenThePickerIsClosed) {
    ComPtr<_Application> object = server_->create();
    _Application* const raw = object.get();
    const DuringModal releasing(window_, [&] { std::thread([&] { object = nullptr; }).join(); });
    EXPECT_EQ(pick(raw), "");
    dispatchMessages();
    EXPECT_TRUE(releasing.wasShown());
    EXPECT_EQ(server_->canUnloadNow(), S_OK);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(LifetimeTest, PickersLeaveNothingBehind) {
    constexpr int kUses = 20;
    const auto pickOften = [&] {
        for (int i = 0; i < kUses; ++i) {
            const ComPtr<_Application> object = server_->create();
            const DuringModal closing(window_);
            pick(object.get());
        }
    };
    pickOften();
    const ResourceCounts before = ResourceCounts::now();
    const int windows = windowsOfThisThread();
    pickOften();
    const ResourceCounts left = ResourceCounts::now() - before;
    EXPECT_LT(left.user, kUses / 2) << left;
    EXPECT_LT(left.gdi, kUses / 2) << left;
    EXPECT_LT(left.kernel, kUses / 2) << left;
    EXPECT_EQ(windowsOfThisThread(), windows);
}

TEST_F(LifetimeTest, OnceItIsNoLongerUsedTheDllCanBeUnloaded) {
    useOnce(true);
    EXPECT_NE(GetModuleHandleW(L"Pellmark.dll"), nullptr);
    server_.reset();
    EXPECT_EQ(GetModuleHandleW(L"Pellmark.dll"), nullptr);
}

// Under Wine the table of USER objects belongs to the whole session: another program that runs in the same
// prefix at the same time shifts this count.
TEST_F(LifetimeTest, TwoHundredUsesLeaveNothingBehind) {
    constexpr int kWarmUp = 20;
    constexpr int kUses = 200;
    for (int i = 0; i < kWarmUp; ++i) {
        useOnce(i % 2 == 0);
    }
    const ResourceCounts before = ResourceCounts::now();
    const int windows = windowsOfThisThread();
    for (int i = 0; i < kUses; ++i) {
        useOnce(i % 2 == 0);
    }
    const ResourceCounts left = ResourceCounts::now() - before;
    // one object per use would be 200; a cache of the system's may still grow by a few
    EXPECT_LT(left.user, kUses / 20) << left;
    EXPECT_LT(left.gdi, kUses / 20) << left;
    EXPECT_LT(left.kernel, kUses / 20) << left;
    EXPECT_EQ(windowsOfThisThread(), windows);
    EXPECT_EQ(childrenOf(window_), 0);
    EXPECT_EQ(host_->references(), 1U);
    EXPECT_EQ(server_->canUnloadNow(), S_OK);
}

TEST(ResourceCountsTest, LeakedObjectsOfEachKindAreSeen) {
    constexpr int kLeaked = 100;
    const ResourceCounts before = ResourceCounts::now();
    HMENU menus[kLeaked];
    HPEN pens[kLeaked];
    HANDLE events[kLeaked];
    for (int i = 0; i < kLeaked; ++i) {
        menus[i] = CreateMenu();
        pens[i] = CreatePen(PS_SOLID, 1, static_cast<COLORREF>(i));
        events[i] = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    }
    const ResourceCounts left = ResourceCounts::now() - before;
    for (int i = 0; i < kLeaked; ++i) {
        DestroyMenu(menus[i]);
        DeleteObject(pens[i]);
        CloseHandle(events[i]);
    }
    // freed places below the highest are filled first
    EXPECT_GT(left.user, kLeaked / 2);
    EXPECT_GE(left.gdi, kLeaked);
    EXPECT_GE(left.kernel, kLeaked);
}

}  // namespace
}  // namespace pellmark

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "com/LoadedServer.h"
#include "com/RegisteredLibrary.h"
#include "com/TestObject.h"
#include "support/win32/Person.h"
#include "support/win32/ResourceCounts.h"

namespace pellmark {
namespace {

using test::Person;
using test::ResourceCounts;

BOOL CALLBACK countWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

/// A host on the calling thread, with a window of its own.
class Host {
  public:
    Host() {
        const auto handle = static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_));
        object_->set(L"MainWindowHandle", handle);
        object_->set(L"InstallationFolder", "C:\\Norvex\\");
        object_->set(L"CurrentUnit", std::int16_t{71});
        const ComPtr<TestObject> settings = TestObject::make();
        settings->set(L"LanguageCode", std::int16_t{1});
        object_->set(L"LanguageSettings", ComPtr<IDispatch>(settings.get()));
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() { DestroyWindow(window_); }

    HRESULT show(_Application* component) {
        IDispatch* host = object_.get();
        VARIANT none;
        return component->ShowWindowProcessesView(&host, nullptr, &none);
    }
    int children() const {
        int count = 0;
        EnumChildWindows(window_, &countWindow, reinterpret_cast<LPARAM>(&count));
        return count;
    }
    ULONG references() const { return object_->references(); }

  private:
    HWND window_ = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 700, 500,
                                   nullptr, nullptr, nullptr, nullptr);
    ComPtr<TestObject> object_ = TestObject::make();
};

class ManyObjectsTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", (programFolder() + L"\\many-objects.db").c_str());
    }
    static void TearDownTestSuite() { SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", nullptr); }

    Apartment apartment_;
    RegisteredLibrary hostLibrary_{L"Norvex.dll"};
};

TEST_F(ManyObjectsTest, TheDllIsLoadedUsedAndUnloadedOftenAndLeavesNothing) {
    constexpr int kWarmUp = 10;
    constexpr int kTimes = 100;
    // Wine's library of printers leaves a mutex behind each time that it goes; so it stays.
    LoadLibraryW(L"winspool.drv");
    const auto once = [] {
        {
            const LoadedServer server;
            const ComPtr<_Application> object = server.create();
        }
        EXPECT_EQ(GetModuleHandleW(L"Pellmark.dll"), nullptr);
    };
    for (int i = 0; i < kWarmUp; ++i)
        once();
    const ResourceCounts before = ResourceCounts::now();
    for (int i = 0; i < kTimes; ++i)
        once();
    const ResourceCounts left = ResourceCounts::now() - before;
    // one object per use would be 100
    EXPECT_LT(left.user, kTimes / 10) << left;
    EXPECT_LT(left.gdi, kTimes / 10) << left;
    EXPECT_LT(left.kernel, kTimes / 10) << left;
}

TEST_F(ManyObjectsTest, FiveHundredObjectsOneAfterAnotherLeaveNothing) {
    constexpr int kWarmUp = 50;
    constexpr int kObjects = 500;
    const LoadedServer server;
    for (int i = 0; i < kWarmUp; ++i)
        server.create();
    const ResourceCounts before = ResourceCounts::now();
    for (int i = 0; i < kObjects; ++i)
        server.create();
    const ResourceCounts left = ResourceCounts::now() - before;
    EXPECT_LT(left.user, kObjects / 10) << left;
    EXPECT_LT(left.gdi, kObjects / 10) << left;
    EXPECT_LT(left.kernel, kObjects / 10) << left;
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(ManyObjectsTest, FiftyObjectsAtOnceInFiveApartmentsShowTheirViewsAndGo) {
    constexpr int kApartments = 5;
    constexpr int kObjectsOfEach = 10;
    const LoadedServer server;
    std::latch allShown(kApartments);
    std::atomic<int> shown = 0;
    std::atomic<int> clean = 0;
    const auto work = [&] {
        const Apartment apartment;
        Host host;
        {
            std::vector<ComPtr<_Application>> objects;
            for (int i = 0; i < kObjectsOfEach; ++i) {
                objects.push_back(server.create());
                if (SUCCEEDED(host.show(objects.back().get()))) ++shown;
                Person::pump();
            }
            // All fifty are there at the same moment.
            allShown.arrive_and_wait();
            while (!objects.empty()) {
                objects.pop_back();
                Person::pump();
            }
        }
        if (host.children() == 0 && host.references() == 1) ++clean;
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kApartments; ++i)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(shown, kApartments * kObjectsOfEach);
    EXPECT_EQ(clean, kApartments);
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace pellmark

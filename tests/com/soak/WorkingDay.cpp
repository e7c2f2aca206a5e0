#include "com/soak/WorkingDay.h"

#include <tlhelp32.h>

#include <psapi.h>

#include <fstream>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "automation/DispatchObject.h"
#include "support/win32/Person.h"

namespace pellmark {

using test::Person;

namespace {

constexpr std::int16_t kLanguages = 7;
constexpr std::int16_t kMetric = 71;
/// One component serves a person for some time before the next one is made.
constexpr int kTurnsOfOneObject = 5;

std::int32_t asNumber(HWND window) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window));
}

DispatchObject createByName(const wchar_t* progId) {
    CLSID classId{};
    ComPtr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(progId, &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveVoid())))
        throw std::runtime_error("the host's library is not registered");
    return {std::move(object), "host"};
}

long threadsOfThisProcess() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    long count = 0;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    CloseHandle(snapshot);
    return count;
}

long filesInTemporaryFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((std::wstring(folder) + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    long count = 0;
    do {
        ++count;
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return count;
}

/// Wine counts nothing there, but the system below it does.
double mebibytesOfThisProcess() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    if (counters.PrivateUsage > 0) return static_cast<double>(counters.PrivateUsage) / (1024.0 * 1024.0);
    std::ifstream status("Z:\\proc\\self\\status");
    for (std::string word; status >> word;) {
        double kibibytes = 0;
        if (word == "RssAnon:" && status >> kibibytes) return kibibytes / 1024;
    }
    return 0;
}

struct Lists {
    std::vector<HWND> windows;

    static BOOL CALLBACK collect(HWND window, LPARAM self) {
        wchar_t kind[32] = {};
        GetClassNameW(window, kind, 32);
        if (std::wstring_view(kind) == L"SysListView32" && IsWindowVisible(window))
            reinterpret_cast<Lists*>(self)->windows.push_back(window);
        return TRUE;
    }
};

}  // namespace

Holdings Holdings::operator-(const Holdings& before) const {
    return {objects - before.objects, threads - before.threads, temporaryFiles - before.temporaryFiles,
            references - before.references, mebibytes - before.mebibytes};
}

std::ostream& operator<<(std::ostream& out, const Holdings& holdings) {
    return out << holdings.objects << ", " << holdings.threads << " threads, " << holdings.temporaryFiles
               << " temporary files, " << holdings.references << " references to the host, "
               << holdings.mebibytes << " MiB";
}

/// While one lives, each dialog, menu and box of the thread that comes up is left with a key.
class WorkingDay::Answering {
  public:
    Answering(WorkingDay& day, WORD key) : day_(day), key_(key), outer_(current()) {
        current() = this;
        timer_ = SetTimer(nullptr, 0, kPollMilliseconds, &tick);
    }
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;
    ~Answering() {
        KillTimer(nullptr, timer_);
        current() = outer_;
    }

  private:
    static constexpr UINT kPollMilliseconds = 10;
    /// So that no key is left over for the window behind.
    static constexpr int kTicksToAKey = 40;
    static constexpr int kFirstKey = 5;

    static Answering*& current() {
        static Answering* instance = nullptr;
        return instance;
    }
    static BOOL CALLBACK seek(HWND window, LPARAM parameter) {
        auto& self = *reinterpret_cast<Answering*>(parameter);
        const bool isOpen = window != self.day_.window_ && IsWindowVisible(window) &&
                            IsWindowEnabled(window) && GetWindow(window, GW_OWNER) != nullptr;
        wchar_t kind[32] = {};
        GetClassNameW(window, kind, 32);
        const std::wstring_view name(kind);
        if (!isOpen || name == L"tooltips_class32" || name == L"#32768") return TRUE;
        self.open_ = window;
        return FALSE;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        Answering& self = *current();
        self.open_ = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &seek, reinterpret_cast<LPARAM>(&self));
        if (self.open_ == nullptr) return;
        if (self.open_ != self.last_) {
            self.last_ = self.open_;
            self.ticks_ = 0;
            ++self.day_.windowsSeen_;
        }
        if (++self.ticks_ % kTicksToAKey == kFirstKey) Person::sendKeys({self.key_});
    }

    WorkingDay& day_;
    WORD key_;
    Answering* outer_;
    UINT_PTR timer_ = 0;
    HWND open_ = nullptr;
    HWND last_ = nullptr;
    int ticks_ = 0;
};

WorkingDay::WorkingDay()
    : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1100, 800,
                              nullptr, nullptr, nullptr, nullptr)) {
    host_->set(L"MainWindowHandle", asNumber(window_));
    host_->set(L"InstallationFolder", "C:\\Norvex\\");
    host_->set(L"CurrentUnit", kMetric);
    settings_->set(L"LanguageCode", std::int16_t{1});
    host_->set(L"LanguageSettings", ComPtr<IDispatch>(settings_.get()));
    owner_->set(L"hWnd", asNumber(window_));
    prepareKnowledgeBase();
}

WorkingDay::~WorkingDay() {
    object_ = nullptr;
    DestroyWindow(window_);
}

void WorkingDay::prepareKnowledgeBase() {
    DispatchObject cases = createByName(L"Norvex.KnowledgeBaseService").call("FeatureCaseStore").object();
    const VariantArg anyType(std::int16_t{-1});
    featureType_ = cases.call("FeatureTypes", {anyType, "", kMetric}).object().call("Field", {"_Id"}).text();
    value_ = cases.call("Values", {featureType_}).object().call("Field", {"_Id"}).text();
}

Holdings WorkingDay::holdings() const {
    return {test::ResourceCounts::now(), threadsOfThisProcess(), filesInTemporaryFolder(),
            static_cast<long>(host_->references()), mebibytesOfThisProcess()};
}

HWND WorkingDay::listAt(int index) const {
    Lists lists;
    const auto isThere = [&] {
        lists.windows.clear();
        EnumChildWindows(window_, &Lists::collect, reinterpret_cast<LPARAM>(&lists));
        return lists.windows.size() > static_cast<std::size_t>(index);
    };
    if (!Person::waitUntil(isThere)) throw std::runtime_error("the view has too few lists");
    return lists.windows[static_cast<std::size_t>(index)];
}

void WorkingDay::answered(WORD key, const std::function<void()>& act) {
    const Answering answering(*this, key);
    act();
    // What opens its window from the message loop has done so by now, and the key has come.
    Person::waitUntil([this] { return IsWindowEnabled(window_) != FALSE; });
}

void WorkingDay::command(HWND list, int placeFromBelow) {
    SetFocus(list);
    Person::press({VK_HOME});
    const test::Meanwhile choosing{[placeFromBelow] {
        if (test::visibleWindowOfClass(L"#32768") == nullptr) return false;
        for (int i = 0; i < placeFromBelow; ++i)
            Person::sendKeys({VK_UP});
        Person::sendKeys({VK_RETURN});
        return true;
    }};
    Person::press({VK_SHIFT, VK_F10});
    Person::waitUntil([&] { return choosing.isDone() && IsWindowEnabled(window_) != FALSE; });
}

void WorkingDay::workInList(HWND list, bool ofCase) {
    SetForegroundWindow(window_);
    SetFocus(list);
    Person::press({VK_HOME});
    Person::press({VK_F5});
    Person::press({VK_CONTROL, VK_SHIFT, '1'});
    Person::press({VK_CONTROL, VK_SHIFT, '0'});
    Person::press({VK_CONTROL, 'F'});
    Person::type("m8");
    Person::press({VK_ESCAPE});
    SetFocus(list);
    Person::press({VK_CONTROL, 'C'});
    answered(VK_RETURN, [] { Person::press({VK_RETURN}); });
    answered(VK_RETURN, [] { Person::press({VK_CONTROL, 'M'}); });
    answered(VK_ESCAPE, [] { Person::press({VK_DELETE}); });
    if (ofCase) answered(VK_ESCAPE, [] { Person::press({VK_INSERT}); });
}

void WorkingDay::inProcessesView() {
    IDispatch* host = host_.get();
    VARIANT none;
    object_->ShowWindowProcessesView(&host, nullptr, &none);
    workInList(listAt(0), false);
}

void WorkingDay::inCaseView() {
    IDispatch* host = host_.get();
    const Bstr value(value_);
    Bstr type(featureType_);
    SAFEARRAY* values = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG first = 0;
    SafeArrayPutElement(values, &first, value.get());
    BSTR typeText = type.get();
    VARIANT none;
    object_->ShowWindowProcessCaseView(&host, &values, kMetric, -1, nullptr, &typeText, nullptr, -1, nullptr,
                                       nullptr, &none);
    SafeArrayDestroy(values);
    workInList(listAt(1), true);
    SetFocus(listAt(2));
    Person::press({VK_HOME});
    Person::press({VK_F2});
    Person::press({VK_ESCAPE});
}

void WorkingDay::pickAndEdit() {
    IDispatch* host = host_.get();
    IDispatch* owner = owner_.get();
    VARIANT none;
    answered(VK_ESCAPE, [&] {
        Bstr picked;
        object_->OpenProcess(&host, &owner, nullptr, kMetric, -1, nullptr, nullptr, nullptr, -1, nullptr,
                             nullptr, picked.receive());
    });
    answered(VK_ESCAPE, [&] {
        Bstr picked;
        object_->OpenFeatureCase(&host, &owner, nullptr, kMetric, -1, nullptr, nullptr, nullptr, -1, nullptr,
                                 nullptr, picked.receive());
    });
    answered(VK_ESCAPE, [&] {
        object_->EditFeatureCase(&host, &owner, nullptr, kMetric, -1, nullptr, nullptr, nullptr, -1, nullptr,
                                 nullptr, &none);
    });
    answered(VK_ESCAPE, [&] {
        object_->EditProcess(&host, &owner, nullptr, kMetric, -1, nullptr, nullptr, nullptr, -1, nullptr,
                             nullptr, &none);
    });
}

void WorkingDay::turn() {
    if (turns_ % kTurnsOfOneObject == 0) {
        object_ = nullptr;
        Person::pump();
        object_ = server_.create();
    }
    settings_->set(L"LanguageCode", static_cast<std::int16_t>(1 + turns_ % kLanguages));
    inProcessesView();
    {
        const Answering leaving(*this, VK_ESCAPE);
        // Format Columns, Print and Save are the last of the menu.
        command(listAt(0), 1 + turns_ % 3);
    }
    inCaseView();
    pickAndEdit();
    ++turns_;
}

}  // namespace pellmark

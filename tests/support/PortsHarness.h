#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Platform.h"
#include "host/Services.h"
#include "support/FakeHost.h"
#include "support/FakeKnowledgeBase.h"
#include "support/MemoryFileSystem.h"
#include "support/MemoryRegistry.h"
#include "support/NoIdle.h"
#include "support/PortableCodePage.h"
#include "support/RecordingClipboard.h"
#include "support/RecordingPrinter.h"
#include "support/RecordingTrace.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedSystemDialogs.h"

namespace pellmark::test {

/// Keeps what was asked of the help viewer, and fails where a test says so.
class RecordingHelp : public HelpViewer {
  public:
    struct Opened {
        WindowHandle owner;
        std::string file;
        std::string topic;
    };
    bool openContext(WindowHandle owner, const std::string& file, std::int32_t context) override {
        opened.push_back({owner, file, std::to_string(context)});
        return shows;
    }
    bool openContext(WindowHandle owner, const std::string& file, const std::string& topic) override {
        opened.push_back({owner, file, "text " + topic});
        return shows;
    }
    bool openPage(WindowHandle, const std::string& page) override {
        pages.push_back(page);
        return hasBrowser;
    }
    std::vector<Opened> opened;
    std::vector<std::string> pages;
    bool shows = true;
    bool hasBrowser = true;
};

/// All ports of a component, faked, over an empty knowledge base.
struct PortsHarness {
    static constexpr const char* kSettings =
        "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings\\";

    void set(const std::string& option, const std::string& value) {
        registry.setText(Registry::kCurrentUser, kSettings, option, value);
    }
    Platform platform() { return platformOn(desktop); }
    /// The same with another screen.
    Platform platformOn(Desktop& screen) {
        return {screen,        registry,  codePage, files,   idle,       help,           fileDialogs,
                systemDialogs, clipboard, printer,  library, operations, "C:\\Pellmark", "Norvex"};
    }

    FakeKnowledgeBase base;
    MemoryRegistry registry;
    PortableCodePage codePage;
    MemoryFileSystem files;
    NoIdle idle;
    RecordingTrace trace;
    Operations operations{trace};
    RecordingHelp help;
    ScriptedFileDialogs fileDialogs;
    ScriptedSystemDialogs systemDialogs;
    RecordingClipboard clipboard;
    RecordingPrinter printer;
    FakeHostLibrary library{base};
    ScriptedDesktop desktop{operations};
    std::shared_ptr<FakeHost> host = std::make_shared<FakeHost>();
};

/// The services of a component whose controllers are tested one by one, on a form of the test's own.
struct ServicesHarness : PortsHarness {
    ServicesHarness() { services.host.set(host); }

    Services services{platform()};
    UserInterface& person = services.person;
    Form form{desktop, "FrmTest"};
};

}  // namespace pellmark::test

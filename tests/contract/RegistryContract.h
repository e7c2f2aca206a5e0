#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ports/CodePage.h"
#include "ports/Registry.h"
#include "settings/cQDLExtSettings.h"
#include "settings/cRegDefaults.h"
#include "settings/cRegistry.h"
#include "support/MemoryFileSystem.h"
#include "support/RecordingTrace.h"
#include "support/ScriptedDesktop.h"

namespace pellmark::test {

/// One implementation of the registry with nothing in it. Its environment has PELLMARK_TEST=drills.
class RegistryUnderTest {
  public:
    virtual ~RegistryUnderTest() = default;
    virtual Registry& registry() = 0;
    virtual const CodePage& codePage() = 0;
};

using RegistryFactory = std::unique_ptr<RegistryUnderTest> (*)();

constexpr std::uint32_t kQueryAccess = 0x01;
constexpr std::uint32_t kEnumerateAccess = 0x08;
constexpr std::uint32_t kFullAccess = 0x3F;
constexpr char kScratch[] = "Software\\Orvane\\Scratch";

/// What every suite over a registry has: an implementation of its own and raw access to what is stored.
class RegistryHarness : public ::testing::TestWithParam<RegistryFactory> {
  protected:
    struct Stored {
        std::int32_t outcome = 0;
        std::uint32_t type = 0;
        std::vector<std::uint8_t> data;
        std::string text() const { return {data.begin(), data.end()}; }
    };

    Registry& registry() { return underTest_->registry(); }
    const CodePage& codePage() { return underTest_->codePage(); }

    Stored stored(const std::string& path, const std::string& name,
                  Registry::Key hive = Registry::kCurrentUser);
    void store(const std::string& path, const std::string& name, std::uint32_t type, const std::string& bytes,
               Registry::Key hive = Registry::kCurrentUser);
    bool keyExists(const std::string& path, Registry::Key hive = Registry::kCurrentUser);

  private:
    std::unique_ptr<RegistryUnderTest> underTest_ = GetParam()();
};

/// The port itself.
class RegistryContract : public RegistryHarness {
  protected:
    Registry::Key open(const std::string& path, std::uint32_t access);
    Registry::Key create(const std::string& path, Registry::Key parent = Registry::kCurrentUser);
    std::vector<std::string> valueNames(const std::string& path);
    std::vector<std::string> sectionNames(const std::string& path);
};

/// The registry accessor over the port.
class CRegistryContract : public RegistryHarness {
  protected:
    /// An accessor of one value under the scratch key.
    cRegistry at(const std::string& name, std::int32_t type = cRegistry::kString);
    Stored written(const std::string& name) { return stored(kScratch, name); }
};

/// The extension settings over the port.
class CQDLExtSettingsContract : public RegistryHarness {
  protected:
    Stored written(const std::string& name);
    void storeText(const std::string& name, const std::string& text);
    void installHost(const std::string& folder);

    MemoryFileSystem files;
    RecordingTrace trace;
    cQDLExtSettings settings{registry(), codePage(), files, "Norvex", trace};
};

/// The layout store over the port, and a form with one of each thing whose layout it keeps.
class CRegDefaultsContract : public RegistryHarness {
  protected:
    class SampleForm : public Form {
      public:
        explicit SampleForm(Desktop& desktop) : Form(desktop, "FrmSample") { setClientSize({6000, 4000}); }
        using Form::setBorderStyle;
    };
    static constexpr char kBase[] = "Software\\Orvane\\Applications\\Process Manager\\";
    static constexpr char kDialog[] =
        "Software\\Orvane\\Applications\\Process Manager\\DialogSettings\\FrmSample\\";
    static constexpr char kGrid[] =
        "Software\\Orvane\\Applications\\Process Manager\\GridDefaults\\FrmSample\\VSFG\\";

    CRegDefaultsContract();
    std::int32_t number(const std::string& path, const std::string& name);
    std::string text(const std::string& path, const std::string& name);
    void storeNumber(const std::string& path, const std::string& name, std::int32_t number);
    void storeText(const std::string& path, const std::string& name, const std::string& text);
    void saveAll();
    void restoreAll();

    RecordingTrace trace;
    Operations operations{trace};
    ScriptedDesktop desktop{operations};
    cRegDefaults layouts{registry(), codePage(), "Norvex", "Process Manager", trace};
    SampleForm form{desktop};
    ComboBox combo{form, "CmbUnit"};
    TextBox box{form, "TxtName"};
    ListView list{form, "LV1"};
    ListView otherList{form, "LV2"};
    Grid grid{form, "VSFG"};
    Toolbar toolbar{"Tools"};
};

}  // namespace pellmark::test

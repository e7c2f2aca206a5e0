#include <gtest/gtest.h>

#include <string>

#include "com/adapters/HostApplicationAdapter.h"
#include "refhost/automation/NorvexLibrary.h"
#include "refhost/automation/Resources.h"
#include "support/TemporaryFolder.h"
#include "support/win32/Person.h"

namespace pellmark {
namespace {

using test::Meanwhile;
using test::NorvexLibrary;

HWND builder() {
    const HWND dialog = test::visibleWindowOfClass(L"#32770");
    return dialog != nullptr && GetDlgItem(dialog, IDC_TERMS) != nullptr ? dialog : nullptr;
}

class ExpressionBuilderTest : public testing::Test {
  protected:
    ExpressionBuilderTest() { NorvexLibrary::useKnowledgeBase(folder_.file("rules.db")); }

    /// The rule that the dialog answers when the person presses OK after those acts.
    std::string built(const std::string& rule, const Meanwhile::Step& first, const Meanwhile::Step& second) {
        const Meanwhile person({[] { return builder() != nullptr && GetFocus() == ruleBox(); }, first, second,
                                [] {
                                    SendMessageW(builder(), WM_COMMAND, IDOK, 0);
                                    return true;
                                }});
        return hostApplicationFrom(library_.create(L"Norvex.Application"))->buildExpression(rule, 0);
    }
    static HWND ruleBox() { return GetDlgItem(builder(), IDC_RULE); }
    static void insertTerm(int term) {
        SendDlgItemMessageW(builder(), IDC_TERMS, LB_SETCURSEL, static_cast<WPARAM>(term), 0);
        SendDlgItemMessageW(builder(), IDC_INSERT, BM_CLICK, 0, 0);
    }
    static bool hasBar() { return (GetWindowLongPtrW(ruleBox(), GWL_STYLE) & WS_VSCROLL) != 0; }

    test::TemporaryFolder folder_;
    NorvexLibrary library_;
};

TEST_F(ExpressionBuilderTest, ATermIsAddedToTheRuleThatIsThere) {
    const auto insert = [] {
        insertTerm(0);
        return true;
    };
    const auto nothing = [] { return true; };
    EXPECT_EQ(built("Depth <= 30 and ", insert, nothing), "Depth <= 30 and Diameter");
}

TEST_F(ExpressionBuilderTest, ComingBackWithTheTabKeyDoesNotSelectTheRule) {
    const auto goRound = [] {
        constexpr WPARAM kNext = 0;
        constexpr WPARAM kPrevious = 1;
        SendMessageW(builder(), WM_NEXTDLGCTL, kNext, FALSE);
        EXPECT_NE(GetFocus(), ruleBox());
        SendMessageW(builder(), WM_NEXTDLGCTL, kPrevious, FALSE);
        return GetFocus() == ruleBox();
    };
    const auto insert = [] {
        insertTerm(1);
        return true;
    };
    EXPECT_EQ(built("Diameter > 8 and ", goRound, insert), "Diameter > 8 and Depth");
}

TEST_F(ExpressionBuilderTest, ItsScrollBarIsThereWhileThereIsSomethingToScroll) {
    bool atFirst = true;
    bool withALongRule = false;
    bool afterwards = true;
    const auto look = [&] {
        atFirst = hasBar();
        const std::wstring lines(1500, L'x');
        SendMessageW(ruleBox(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(lines.c_str()));
        withALongRule = hasBar();
        return true;
    };
    const auto shorten = [&] {
        SendMessageW(ruleBox(), EM_SETSEL, 0, -1);
        SendMessageW(ruleBox(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Depth"));
        afterwards = hasBar();
        return true;
    };
    EXPECT_EQ(built("Diameter > 8", look, shorten), "Depth");
    EXPECT_FALSE(atFirst);
    EXPECT_TRUE(withALongRule);
    EXPECT_FALSE(afterwards);
}

}  // namespace
}  // namespace pellmark

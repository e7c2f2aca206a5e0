#include "com/Members.h"

#include <gtest/gtest.h>

#include "com/EmbeddedTypes.h"

namespace pellmark {
namespace {

TEST(MembersTest, NamesAreFoundWithoutCase) {
    EXPECT_EQ(findMember(L"openprocess"), Member::OpenProcess);
    EXPECT_EQ(findMember(L"DISPOSE"), Member::Dispose);
    EXPECT_EQ(findMember(L"OpenProces"), std::nullopt);
    EXPECT_EQ(findParameter(Member::OpenProcess, L"ownerform"), 1);
    EXPECT_EQ(findParameter(Member::ShowWindowProcessCaseView, L"OwnerForm"), std::nullopt);
}

TEST(MembersTest, NumbersOutsideTheTableAreNoMembers) {
    for (const DISPID id : {DISPID{0}, DISPID{-1}, DISPID{10}, DISPID{0x7FFFFFFF}}) {
        EXPECT_EQ(findMember(id), std::nullopt) << id;
    }
}

TEST(MembersTest, TheTableAndTheTypeLibraryAgree) {
    const EmbeddedTypes types;
    const InterfaceDescription described = types.describeInterface();
    ASSERT_EQ(described.functions.size(), 11U);
    for (const FunctionDescription& function : described.functions) {
        const std::optional<Member> member = findMember(function.name);
        ASSERT_TRUE(member) << fromWide(function.name);
        EXPECT_EQ(static_cast<DISPID>(*member), function.id);
        if (function.kind != INVOKE_FUNC) continue;
        const auto parameters = parametersOf(*member);
        ASSERT_EQ(parameters.size(), function.parameters.size()) << fromWide(function.name);
        std::size_t required = 0;
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            EXPECT_EQ(nameOf(parameters[i]), function.parameters[i].name);
            if ((function.parameters[i].flags & PARAMFLAG_FOPT) == 0) required = i + 1;
        }
        EXPECT_EQ(requiredParametersOf(*member), required) << fromWide(function.name);
    }
}

}  // namespace
}  // namespace pellmark

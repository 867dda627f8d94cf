#include "layout/default_look.h"

#include <gtest/gtest.h>

#include <map>

#include "layout/window_model.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Window = WindowModel::Window;

struct LookDialog : ::testing::Test {
    WindowModel model;
    Window field = model.Add(model.Dialog(), "field");
    Window otherField = model.Add(model.Dialog(), "other field");
    Window ok = model.Add(model.Dialog(), "ok", Stop | Push);
    Window cancel = model.Add(model.Dialog(), "cancel", Stop | Push);
    Window help = model.Add(model.Dialog(), "help", Stop | Push);

    // The changes in words, in their order: "+" for getting the default look.
    std::string Focus(Window control, Window last, Window defaultButton) {
        return Words(LooksAfterFocus(model, control, last, defaultButton));
    }

    static std::string Words(const LookChanges<Window>& changes) {
        std::string words;
        for (const LookChange<Window>& change : changes) {
            words += (words.empty() ? "" : " ") + std::string(change.isDefault ? "+" : "-") +
                     change.button->name;
        }
        return words;
    }
};

TEST_F(LookDialog, AFocusedPushButtonBearsTheLookInsteadOfTheDefaultButton) {
    EXPECT_EQ(Focus(cancel, field, ok), "-ok +cancel");
    EXPECT_EQ(Focus(cancel, nullptr, ok), "-ok +cancel");
}

TEST_F(LookDialog, AFocusedPushButtonTakesTheLookFromTheOneThatHadTheFocus) {
    EXPECT_EQ(Focus(cancel, help, ok), "-help -ok +cancel");
    EXPECT_EQ(Focus(cancel, help, nullptr), "-help +cancel");
}

TEST_F(LookDialog, TheDefaultButtonGetsItsLookBackWhenItHasTheFocus) {
    EXPECT_EQ(Focus(ok, cancel, ok), "-cancel +ok");
    EXPECT_EQ(Focus(ok, field, ok), "+ok");
}

TEST_F(LookDialog, TheDefaultButtonGetsItsLookBackWhenTheFocusGoesToAnotherKindOfControl) {
    EXPECT_EQ(Focus(field, cancel, ok), "-cancel +ok");
    EXPECT_EQ(Focus(field, otherField, ok), "+ok");
    EXPECT_EQ(Focus(field, nullptr, ok), "+ok");
}

TEST_F(LookDialog, TheDefaultButtonDoesNotLoseItsLookOnTheWay) {
    EXPECT_EQ(Focus(field, ok, ok), "+ok");
}

TEST_F(LookDialog, WithoutADefaultButtonOnlyAFocusedPushButtonBearsTheLook) {
    EXPECT_EQ(Focus(cancel, nullptr, nullptr), "+cancel");
    EXPECT_EQ(Focus(field, cancel, nullptr), "-cancel");
    EXPECT_EQ(Focus(field, otherField, nullptr), "");
    EXPECT_EQ(Focus(field, nullptr, nullptr), "");
}

TEST_F(LookDialog, APushButtonThatHadTheFocusBeforeEndsWithTheLook) {
    EXPECT_EQ(Focus(cancel, cancel, nullptr), "-cancel +cancel");
    EXPECT_EQ(Focus(cancel, cancel, ok), "-cancel -ok +cancel");
}

TEST_F(LookDialog, ADefaultButtonThatIsNoPushButtonIsLeftAlone) {
    EXPECT_EQ(Focus(cancel, nullptr, field), "+cancel");
    EXPECT_EQ(Focus(otherField, cancel, field), "-cancel");
}

TEST_F(LookDialog, ANewDefaultButtonTakesTheLookFromThePreviousOne) {
    EXPECT_EQ(Words(LooksAfterNewDefault(model, ok, cancel)), "-ok +cancel");
    EXPECT_EQ(Words(LooksAfterNewDefault(model, static_cast<Window>(nullptr), ok)), "+ok");
    EXPECT_EQ(Words(LooksAfterNewDefault(model, ok, ok)), "-ok +ok");
}

TEST_F(LookDialog, ExactlyOneButtonBearsTheLookWhereverTheFocusGoes) {
    const Window all[] = {field, otherField, ok, cancel, help};
    std::map<Window, bool> hasLook = {{ok, true}};
    Window last = nullptr;
    const auto focus = [&](Window control) {
        for (const auto& change : LooksAfterFocus(model, control, last, ok)) {
            hasLook[change.button] = change.isDefault;
        }
        last = control;
        for (const Window button : {ok, cancel, help}) {
            const Window bearer = model.IsPushButton(control) ? control : ok;
            ASSERT_EQ(hasLook[button], button == bearer) << button->name;
        }
    };
    for (const Window from : all) {
        for (const Window to : all) {
            focus(from);
            focus(to);
        }
    }
}

}  // namespace
}  // namespace tallymere

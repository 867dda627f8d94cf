// What tests of the prime pages share: English texts, "." and "," as separators, a ScratchStack,
// and a place where the pieces of a run are kept.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/number_setup.h"
#include "core/scratch.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "support/exact_testing.h"

namespace tallymere::testing_support {

/// The pieces that KeepPiece was given.
inline std::vector<std::u16string> keptPieces;

inline void KeepPiece(const char16_t* text) {
    keptPieces.push_back(text);
}

/// All of them in one.
inline std::u16string KeptText() {
    std::u16string text;
    for (const std::u16string& piece : keptPieces) {
        text += piece;
    }
    return text;
}

class PrimePagesTest : public ::testing::Test {
protected:
    void SetUp() override {
        context_ = numberContext;
        numberContext.groupSeparators[0] = u',';
        numberContext.groupSeparators[1] = u',';
        numberContext.groupSeparators[2] = u',';
        ClearErrors();
        InstallLanguage(LanguageEnglish);
        keptPieces.clear();
        CreateScratchStack();
    }
    void TearDown() override {
        EXPECT_EQ(numberContext.scratchTop, context_.scratchTop);
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        DestroyScratchStack();
        ClearErrors();
        numberContext = context_;
    }

    /// The pending error's code; its first argument goes to `argument`. None is pending afterwards,
    /// and none may be noted by the arithmetic.
    static UiErrorCode TakeError(std::u16string* argument = nullptr) {
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
        const UiErrorCode code = PendingUiError();
        if (argument != nullptr) {
            *argument = uiError.arg1;
        }
        ClearErrors();
        return code;
    }

private:
    NumberContext context_;
};

}  // namespace tallymere::testing_support

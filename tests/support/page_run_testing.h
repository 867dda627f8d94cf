// What tests of the runs of pages share: English texts, "." and "," as separators, a ScratchStack,
// and a place where the text of a run is kept.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/number_setup.h"
#include "core/scratch.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere::testing_support {

/// The text that KeepPiece was given. Where a run cuts it into pieces, no test knows.
inline std::u16string keptText;

inline void KeepPiece(const char16_t* text) {
    keptText += text;
}

inline bool HasKept(const char16_t* text) {
    return keptText.find(text) != keptText.npos;
}

/// What a run sends, and the error that is pending when it has ended.
struct RunResult {
    std::u16string text;
    UiErrorCode error;
    std::u16string argument;  ///< of the error; empty where there is none
    bool operator==(const RunResult& other) const = default;
};

inline void PrintTo(const RunResult& result, std::ostream* out) {
    for (const char16_t c : result.text) {
        if (c == u'\r') {
            *out << "\\r";
        } else if (c == u'\n') {
            *out << "\\n";
        } else {
            *out << static_cast<char>(c < 128 ? c : u'#');
        }
    }
    *out << " error " << result.error << " " << testing::PrintToString(result.argument);
}

/// A run without an error.
inline RunResult Sends(const std::u16string& text) {
    return {text, UiErrorNone, u""};
}

class PageRunTest : public ::testing::Test {
protected:
    void SetUp() override {
        context_ = numberContext;
        numberContext.groupSeparators[0] = u',';
        numberContext.groupSeparators[1] = u',';
        numberContext.groupSeparators[2] = u',';
        ClearErrors();
        InstallLanguage(LanguageEnglish);
        keptText.clear();
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

    /// What a run keeps by KeepPiece.
    template <typename Run>
    static RunResult ResultOf(Run run) {
        keptText.clear();
        run();
        RunResult result = {keptText, UiErrorNone, u""};
        result.error = TakeError(&result.argument);
        if (result.argument == u"?") {
            result.argument.clear();
        }
        return result;
    }

private:
    NumberContext context_;
};

}  // namespace tallymere::testing_support

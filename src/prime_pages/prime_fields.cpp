#include "prime_pages/prime_fields.h"

#include "core/digit_text.h"
#include "core/number_bases.h"
#include "core/number_context.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"
#include "exact/big_uint.h"
#include "exact/big_uint_text.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// The base as the flags of number texts name it: 10 is what they mean without a base.
uint32_t BaseFlags(int32_t base) {
    return base == DecimalBase ? 0 : static_cast<uint32_t>(base);
}

// dest = the number in a field; false without an error of its own when there is none.
bool ReadNumber(uint64_t* dest, const char16_t* text, uint32_t parseFlags) {
    const CalcErrorScope scope;
    BigUintFromText(dest, text, TextUntilZero, parseFlags);
    const bool isRead = numberContext.calcError == CalcErrorNone;
    numberContext.calcError = CalcErrorNone;
    return isRead;
}

}  // namespace

uint32_t PrimeParseFlags(int32_t base) {
    return BaseFlags(base) | TextGroup;
}

uint32_t PrimePrintFlags(int32_t base, bool grouped) {
    return BaseFlags(base) | (grouped ? uint32_t{TextGroup} : 0);
}

bool IsBlankField(const char16_t* text) {
    while (*text == u' ') {
        text++;
    }
    return *text == 0;
}

int32_t CountFieldDigits(const char16_t* text) {
    int32_t count = 0;
    for (; *text != 0; text++) {
        count += IsDecimalDigit(*text) || IsLetter(*text) ? 1 : 0;
    }
    return count;
}

bool ReadPrimeNumberField(uint64_t* dest, const char16_t* text, uint32_t parseFlags) {
    if (ReadNumber(dest, text, parseFlags) && !BigUintIsZero(dest)) {
        return true;
    }
    SetUiError(UiErrorInvalidInput, text);
    return false;
}

bool ReadIntervalField(int64_t* interval, const char16_t* text, uint32_t parseFlags,
                       int64_t highest) {
    ScratchStackScope scope;
    uint64_t* number = scope.Take(numberContext.uintLimbs);
    *interval = 0;
    if (ReadNumber(number, text, parseFlags) && !BigUintIsZero(number) &&
        BigUintFitsUnsigned(number) && number[0] <= static_cast<uint64_t>(highest)) {
        *interval = static_cast<int64_t>(number[0]);
        return true;
    }
    SetUiError(UiErrorInvalidInput, text);
    return false;
}

const char16_t* NumberFieldText(ScratchScope& scope, const uint64_t* number, uint32_t printFlags) {
    const int64_t longest = BigUintTextLength(printFlags);
    char16_t* text = TakeText(scope, longest);
    BigUintToText(text, longest, number, printFlags);
    return text;
}

const char16_t* IntervalFieldText(ScratchScope& scope, int64_t interval, uint32_t printFlags) {
    uint64_t* number = scope.Take(numberContext.uintLimbs);
    BigUintFromUnsigned(number, static_cast<uint64_t>(interval));
    return NumberFieldText(scope, number, printFlags);
}

const char16_t* FieldTextInNewBase(ScratchScope& scope, const char16_t* text, uint32_t parseFlags,
                                   uint32_t printFlags) {
    if (IsBlankField(text)) {
        return nullptr;
    }
    uint64_t* number = scope.Take(numberContext.uintLimbs);
    if (!ReadNumber(number, text, parseFlags)) {
        SetUiError(UiErrorInvalidInput, text);
        return nullptr;
    }
    return NumberFieldText(scope, number, printFlags);
}

}  // namespace tallymere

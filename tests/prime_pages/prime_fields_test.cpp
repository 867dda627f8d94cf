#include "prime_pages/prime_fields.h"

#include "core/text_flags.h"
#include "exact/big_uint.h"
#include "prime_pages/factor_run.h"
#include "prime_pages/prime_run.h"
#include "prime_pages_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PrimeFields : public PrimePagesTest {
protected:
    // The number that a field of so many limbs is read as, or "invalid" after the error, which has
    // the text as its argument.
    static std::string Read(const std::u16string& text, int64_t limbs = 2, int32_t base = 10) {
        const UintWidthScope width(limbs);
        UintBuffer number;
        const bool isRead = ReadPrimeNumberField(number, text.c_str(), PrimeParseFlags(base));
        return Checked(isRead, text) ? UintText(number) : "invalid";
    }

    static std::string Value(const std::string& text, int64_t limbs = 2) {
        const UintWidthScope width(limbs);
        return UintTextOf(text);
    }

    // The interval, or -1 after the error.
    static int64_t ReadInterval(const std::u16string& text, int64_t highest, int32_t base = 10) {
        const NumberSetupScope setup(FactorNumberSetup());
        int64_t interval = 77;
        const bool isRead =
            ReadIntervalField(&interval, text.c_str(), PrimeParseFlags(base), highest);
        if (Checked(isRead, text)) {
            return interval;
        }
        EXPECT_EQ(interval, 0);
        return -1;
    }

    // The text after a change of the base, or "stays".
    static std::u16string Changed(const std::u16string& text, int32_t from, int32_t to,
                                  bool grouped = false, int64_t limbs = 2) {
        const UintWidthScope width(limbs);
        ScratchStackScope scope;
        const char16_t* changed = FieldTextInNewBase(scope, text.c_str(), PrimeParseFlags(from),
                                                     PrimePrintFlags(to, grouped));
        return changed != nullptr ? changed : u"stays";
    }

private:
    static bool Checked(bool isRead, const std::u16string& text) {
        std::u16string argument;
        const UiErrorCode code = TakeError(&argument);
        EXPECT_EQ(code, isRead ? UiErrorNone : UiErrorInvalidInput);
        if (!isRead && text.size() <= UiErrorArgumentCapacity) {
            EXPECT_EQ(argument, text);
        }
        return isRead;
    }
};

TEST_F(PrimeFields, HaveTheFlagsOfTheirBase) {
    EXPECT_EQ(PrimeParseFlags(10), TextGroup);
    EXPECT_EQ(PrimeParseFlags(16), 16u | TextGroup);
    EXPECT_EQ(PrimePrintFlags(10, false), 0u);
    EXPECT_EQ(PrimePrintFlags(10, true), TextGroup);
    EXPECT_EQ(PrimePrintFlags(16, false), 16u);
    EXPECT_EQ(PrimePrintFlags(16, true), 16u | TextGroup);
    EXPECT_EQ(InitialPrimeBase, 10);
}

TEST_F(PrimeFields, ReadANumber) {
    EXPECT_EQ(Read(u"1"), "1");
    EXPECT_EQ(Read(u" 360 "), "360");
    EXPECT_EQ(Read(u"+7"), "7");
    EXPECT_EQ(Read(u"007"), "7");
    EXPECT_EQ(Read(u"1,234,567"), "1234567");
    EXPECT_EQ(Read(u"12,3"), "123");
    EXPECT_EQ(Read(u"1e3"), "1000");
    EXPECT_EQ(Read(u"1.5e1"), "15");
    EXPECT_EQ(Read(u"ff", 2, 16), "255");
    EXPECT_EQ(Read(u"FF", 2, 16), "255");
    EXPECT_EQ(Read(u"1e5", 2, 16), Value("0x1e5"));
    EXPECT_EQ(Read(u"1234,5678", 2, 16), Value("0x12345678"));
}

TEST_F(PrimeFields, RefuseWhatIsNoNumber) {
    for (const char16_t* text :
         {u"",     u" ",  u"0",  u"000", u"0x0",   u"-1",  u"a",      u"12a", u"ff", u"1.5", u"0.5",
          u"1e-1", u"1,", u",1", u"1 2", u"1'000", u"2+3", u"1\r\n2", u"\t1", u"x",  u"?"}) {
        EXPECT_EQ(Read(text), "invalid");
    }
    for (const char16_t* text : {u"0", u"g", u"1.5", u"-a", u"0xff", u"f,"}) {
        EXPECT_EQ(Read(text, 2, 16), "invalid");
    }
}

TEST_F(PrimeFields, HoldTheWidthOfTheMethod) {
    const std::u16string largest = u"340282366920938463463374607431768211455";
    EXPECT_EQ(Read(largest), Value(TwoTo(128, "-1")));
    EXPECT_EQ(Read(u"340282366920938463463374607431768211456"), "invalid");
    EXPECT_EQ(Read(std::u16string(38, u'9')), std::string(38, '9'));
    EXPECT_EQ(Read(u"1" + std::u16string(38, u'0')), "1" + std::string(38, '0'));
    EXPECT_EQ(Read(std::u16string(39, u'9')), "invalid");
    EXPECT_EQ(Read(std::u16string(32, u'f'), 2, 16), Value(TwoTo(128, "-1")));
    EXPECT_EQ(Read(u"1" + std::u16string(32, u'0'), 2, 16), "invalid");

    EXPECT_EQ(Read(u"1" + std::u16string(39, u'0'), 65), "1" + std::string(39, '0'));
    EXPECT_EQ(Read(std::u16string(1'252, u'9'), 65), std::string(1'252, '9'));
    EXPECT_EQ(Read(u"1" + std::u16string(1'252, u'0'), 65), "1" + std::string(1'252, '0'));
    EXPECT_EQ(Read(std::u16string(1'253, u'9'), 65), "invalid");
    EXPECT_EQ(Read(std::u16string(1'040, u'f'), 65, 16), Value(TwoTo(4'160, "-1"), 65));
    EXPECT_EQ(Read(std::u16string(1'041, u'f'), 65, 16), "invalid");
}

// The record keeps as much of the text as it has room for.
TEST_F(PrimeFields, RefuseALongPastedTextWithItsBeginning) {
    const std::u16string digits(10'000, u'7');
    const UintWidthScope width(65);
    UintBuffer number;
    EXPECT_FALSE(ReadPrimeNumberField(number, digits.c_str(), PrimeParseFlags(10)));
    std::u16string argument;
    EXPECT_EQ(TakeError(&argument), UiErrorInvalidInput);
    EXPECT_EQ(argument, std::u16string(UiErrorArgumentCapacity - 1, u'7') + u'\u2026');

    std::u16string grouped = u"1";
    for (int i = 0; i < 400; i++) {
        grouped += u",000";
    }
    EXPECT_TRUE(ReadPrimeNumberField(number, grouped.c_str(), PrimeParseFlags(10)));
    EXPECT_EQ(UintText(number), "1" + std::string(1'200, '0'));
}

TEST_F(PrimeFields, LeaveTheErrorThatCameFirst) {
    SetUiError(UiErrorStopped);
    const UintWidthScope width(2);
    UintBuffer number;
    EXPECT_FALSE(ReadPrimeNumberField(number, u"a", PrimeParseFlags(10)));
    EXPECT_EQ(TakeError(), UiErrorStopped);
}

TEST_F(PrimeFields, ReadTheIntervalWithinItsLimits) {
    EXPECT_EQ(ReadInterval(u"1", MaxFactorInterval), 1);
    EXPECT_EQ(ReadInterval(u" 1,000,000 ", MaxFactorInterval), 1'000'000);
    EXPECT_EQ(ReadInterval(u"1000001", MaxFactorInterval), -1);
    EXPECT_EQ(ReadInterval(u"2147483647", MaxPrimeInterval), 2'147'483'647);
    EXPECT_EQ(ReadInterval(u"2147483648", MaxPrimeInterval), -1);
    EXPECT_EQ(ReadInterval(u"18446744073709551617", MaxPrimeInterval), -1);
    EXPECT_EQ(ReadInterval(u"1e50", MaxPrimeInterval), -1);
    EXPECT_EQ(ReadInterval(InitialPrimeInterval, MaxPrimeInterval), 100);
    for (const char16_t* text : {u"", u" ", u"0", u"-1", u"x", u"1.5", u"ff"}) {
        EXPECT_EQ(ReadInterval(text, MaxPrimeInterval), -1);
    }
    EXPECT_EQ(ReadInterval(u"ff", MaxFactorInterval, 16), 255);
    EXPECT_EQ(ReadInterval(u"F4240", MaxFactorInterval, 16), 1'000'000);
    EXPECT_EQ(ReadInterval(u"F4241", MaxFactorInterval, 16), -1);
}

TEST_F(PrimeFields, WriteTheNormalForm) {
    const NumberSetupScope setup(FactorNumberSetup());
    ScratchStackScope scope;
    const UintBuffer number("1234567");
    const auto text = [&](uint32_t flags) {
        return std::u16string(NumberFieldText(scope, number, flags));
    };
    EXPECT_EQ(text(PrimePrintFlags(10, false)), u"1234567");
    EXPECT_EQ(text(PrimePrintFlags(10, true)), u"1,234,567");
    EXPECT_EQ(text(PrimePrintFlags(16, false)), u"12D687");
    EXPECT_EQ(text(PrimePrintFlags(16, true)), u"12,D687");
    EXPECT_EQ(std::u16string(IntervalFieldText(scope, 1'000'000, PrimePrintFlags(10, true))),
              u"1,000,000");
    EXPECT_EQ(std::u16string(IntervalFieldText(scope, 1'000'000, PrimePrintFlags(16, true))),
              u"F,4240");
    const UintBuffer largest(TwoTo(128, "-1"));
    EXPECT_EQ(std::u16string(NumberFieldText(scope, largest, PrimePrintFlags(10, true))),
              u"340,282,366,920,938,463,463,374,607,431,768,211,455");
}

TEST_F(PrimeFields, GoOverToANewBase) {
    EXPECT_EQ(Changed(u"255", 10, 16), u"FF");
    EXPECT_EQ(Changed(u"ff", 16, 10), u"255");
    EXPECT_EQ(Changed(u"1,234,567", 10, 16, true), u"12,D687");
    EXPECT_EQ(Changed(u"12,d687", 16, 10, true), u"1,234,567");
    EXPECT_EQ(Changed(u"1e3", 10, 16), u"3E8");
    // A field that would be refused at Start is rewritten as well.
    EXPECT_EQ(Changed(u"000", 10, 16), u"0");
    EXPECT_EQ(Changed(u"99999999999", 10, 16), u"174876E7FF");
    EXPECT_EQ(TakeError(), UiErrorNone);
}

TEST_F(PrimeFields, StayAsTheyAreWhenBlankOrUnreadable) {
    for (const char16_t* text : {u"", u" ", u"   "}) {
        EXPECT_EQ(Changed(text, 10, 16), u"stays");
        EXPECT_EQ(TakeError(), UiErrorNone);
    }
    for (const char16_t* text :
         {u"ff", u"-1", u"1.5", u"1,", u"12345678901234567890123456789012345678901"}) {
        EXPECT_EQ(Changed(text, 10, 16), u"stays");
        std::u16string argument;
        EXPECT_EQ(TakeError(&argument), UiErrorInvalidInput);
        EXPECT_EQ(argument, text);
    }
    EXPECT_EQ(Changed(std::u16string(38, u'9') + u"99", 10, 16, false, 65).size(), 34u);
}

// Both fields of a page are tried; the first error is the one that is reported.
TEST_F(PrimeFields, GoOverIndependently) {
    EXPECT_EQ(Changed(u"x", 10, 16), u"stays");
    EXPECT_EQ(Changed(u"100", 10, 16), u"64");
    EXPECT_EQ(Changed(u"y", 10, 16), u"stays");
    std::u16string argument;
    EXPECT_EQ(TakeError(&argument), UiErrorInvalidInput);
    EXPECT_EQ(argument, u"x");
}

TEST_F(PrimeFields, LeaveAnEarlierCodeOfTheArithmetic) {
    numberContext.calcError = CalcErrorUndefined;
    EXPECT_EQ(Changed(u"255", 10, 16), u"FF");
    EXPECT_EQ(numberContext.calcError, CalcErrorUndefined);
    numberContext.calcError = CalcErrorNone;
}

TEST_F(PrimeFields, CountDigitsAndLetters) {
    EXPECT_EQ(CountFieldDigits(u""), 0);
    EXPECT_EQ(CountFieldDigits(u"0123456789"), 10);
    EXPECT_EQ(CountFieldDigits(u"1,234,567"), 7);
    EXPECT_EQ(CountFieldDigits(u"azAZ"), 4);
    EXPECT_EQ(CountFieldDigits(u"/:@[`{ +-.'\r\n\u00e4\u0661"), 0);
    EXPECT_EQ(CountFieldDigits(std::u16string(10'000, u'7').c_str()), 10'000);
}

TEST_F(PrimeFields, AreBlankWithoutAnythingButSpaces) {
    EXPECT_TRUE(IsBlankField(u""));
    EXPECT_TRUE(IsBlankField(u"  "));
    EXPECT_FALSE(IsBlankField(u" 1"));
    EXPECT_FALSE(IsBlankField(u"\t"));
    EXPECT_FALSE(IsBlankField(u"0"));
}

TEST_F(PrimeFields, HaveTheNumberSetupOfTheirPage) {
    EXPECT_EQ(FactorNumberSetup().width.limbs, 2);
    EXPECT_EQ(FactorNumberSetup().width.digits, 38);
    EXPECT_EQ(PrimeNumberSetup(ExactMethod).width.limbs, 2);
    EXPECT_EQ(PrimeNumberSetup(ExactMethod).width.digits, 38);
    EXPECT_EQ(PrimeNumberSetup(ProbabilisticMethod).width.limbs, 65);
    EXPECT_EQ(PrimeNumberSetup(ProbabilisticMethod).width.digits, 1'252);
    EXPECT_EQ(PrimeNumberSetup(NoMethod).width.limbs, 65);
    for (const PrimeMethod method : {ExactMethod, ProbabilisticMethod}) {
        EXPECT_EQ(PrimeNumberSetup(method).type, NumberTypeUint);
    }
}

// The numbers with so many digits that fit, and the first with one more.
TEST_F(PrimeFields, HaveTheDigitsThatTheMethodsPromise) {
    const auto fits = [](size_t digits, char16_t digit, int64_t limbs) {
        return Read(u"1" + std::u16string(digits - 1, digit), limbs) != "invalid";
    };
    EXPECT_NE(Read(std::u16string(ExactSureDigits, u'9'), 2), "invalid");
    EXPECT_EQ(Read(std::u16string(ExactSureDigits + 1, u'9'), 2), "invalid");
    EXPECT_TRUE(fits(ExactMaxDigits, u'0', 2));
    EXPECT_FALSE(fits(ExactMaxDigits + 1, u'0', 2));
    EXPECT_TRUE(fits(ProbabilisticMaxDigits, u'0', 65));
    EXPECT_FALSE(fits(ProbabilisticMaxDigits + 1, u'0', 65));
}

}  // namespace
}  // namespace tallymere

#include "exact/big_uint_division.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exact/big_uint.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Quotient, remainder and code.
struct Division {
    std::string quotient;
    std::string remainder;
    CalcError code = CalcErrorNone;
    bool operator==(const Division&) const = default;
};

void PrintTo(const Division& division, std::ostream* out) {
    *out << division.quotient << " remainder " << division.remainder << " code " << division.code;
}

Division Divide(std::string_view a, std::string_view b) {
    UintBuffer quotient;
    UintBuffer remainder;
    BigUintDivide(quotient, remainder, UintBuffer(a), UintBuffer(b));
    return {quotient.Text(), remainder.Text(), TakeCode()};
}

Division DivideByWord(std::string_view a, uint64_t d, uint64_t reciprocal = 0) {
    UintBuffer quotient;
    uint64_t remainder = 77;
    BigUintDivideSmall(quotient, &remainder, UintBuffer(a), d, reciprocal);
    return {quotient.Text(), std::to_string(remainder), TakeCode()};
}

constexpr Division ByZero() {
    return {"0", "0", CalcErrorExactDivisionByZero};
}

TEST(BigUintDivide, RefusesADivisorOfZero) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Divide("7", "0"), ByZero());
        EXPECT_EQ(Divide("0", "0"), ByZero());
        BigUintDivide(nullptr, nullptr, UintBuffer("7"), UintBuffer("0"));
        EXPECT_EQ(TakeCode(), CalcErrorExactDivisionByZero);
    }
}

TEST(BigUintDivide, LeavesASmallerDividendAsRemainder) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Divide("0", "1"), (Division{"0", "0"}));
        EXPECT_EQ(Divide("6", "7"), (Division{"0", "6"}));
        const std::string ones = TwoTo(64 * limbs, "-1");
        const std::string below = TwoTo(64 * limbs, "-2");
        EXPECT_EQ(Divide(below, ones), (Division{"0", UintTextOf(below)}));
        EXPECT_EQ(Divide("1", ones), (Division{"0", "1"}));
    }
}

TEST(BigUintDivide, DividesANumberByItself) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const std::string& text : {std::string("1"), std::string("10"), TwoTo(64 * limbs - 1),
                                        TwoTo(64 * limbs, "-1")}) {
            EXPECT_EQ(Divide(text, text), (Division{"1", "0"}));
        }
    }
}

TEST(BigUintDivide, GivesHandCheckedQuotients) {
    WidthScope scope(26);
    EXPECT_EQ(Divide("100000000000000000000000000000000000000007", "100000000000000000000000"),
              (Division{"1000000000000000000", "7"}));
    EXPECT_EQ(Divide("121932631137021795226185032733622923332237463801111263526900",
                     "987654321098765432109876543210"),
              (Division{"123456789012345678901234567890", "0"}));
    // (2^100 + 3) (2^100 - 3) = 2^200 - 9.
    EXPECT_EQ(Divide("2^200-9", "2^100+3"), (Division{UintTextOf("2^100-3"), "0"}));
    EXPECT_EQ(Divide("2^200-1", "2^100+3"), (Division{UintTextOf("2^100-3"), "8"}));
    EXPECT_EQ(Divide("2^200-10", "2^100+3"),
              (Division{UintTextOf("2^100-4"), UintTextOf("2^100+2")}));
}

TEST(BigUintDivide, DividesByDivisorsOfExactly64And65Bits) {
    WidthScope scope(26);
    // (2^64 - 1) (2^128 + 2^64 + 1) = 2^192 - 1 and 2^64 (2^64) = 2^128.
    EXPECT_EQ(Divide("2^192-1", "2^64-1"),
              (Division{UintTextOf("0x100000000000000010000000000000001"), "0"}));
    EXPECT_EQ(Divide("2^192-2", "2^64-1"),
              (Division{UintTextOf("0x100000000000000010000000000000000"), UintTextOf("2^64-2")}));
    EXPECT_EQ(Divide("2^192-1", "2^64"), (Division{UintTextOf("2^128-1"), UintTextOf("2^64-1")}));
    EXPECT_EQ(Divide("2^192-1", "2^63"), (Division{UintTextOf("2^129-1"), UintTextOf("2^63-1")}));
    // (2^64 + 1) (2^128 - 2^64 + 1) = 2^192 + 1.
    EXPECT_EQ(Divide("2^192+1", "2^64+1"),
              (Division{UintTextOf("0xffffffffffffffff0000000000000001"), "0"}));
    EXPECT_EQ(Divide("2^192", "2^64+1"),
              (Division{UintTextOf("0xffffffffffffffff0000000000000000"), UintTextOf("2^64")}));
    EXPECT_EQ(Divide("2^65-2", "2^65-1"), (Division{"0", UintTextOf("2^65-2")}));
}

// The leading limbs of what remains and of the divisor agree, so that the estimate of a quotient
// limb would not fit one.
TEST(BigUintDivide, FindsAQuotientLimbOfOnesBehindEqualLeadingLimbs) {
    WidthScope scope(8);
    // The dividend is 2^64 times the divisor, less 1.
    EXPECT_EQ(Divide("0x80000000000000000000000000000000fffffffffffffffeffffffffffffffff",
                     "0x80000000000000000000000000000000ffffffffffffffff"),
              (Division{UintTextOf("2^64-1"),
                        UintTextOf("0x80000000000000000000000000000000fffffffffffffffe")}));
}

TEST(BigUintDivide, WritesOverItsOperands) {
    for (int64_t limbs : {2, 26, 65}) {
        WidthScope scope(limbs);
        for (const char* divisorText : {"7", "2^64-1", "2^64+1", "2^127+3", "0"}) {
            const UintBuffer a("2^127+12345678901234567");
            const UintBuffer b(divisorText);
            UintBuffer quotient;
            UintBuffer remainder;
            BigUintDivide(quotient, remainder, a, b);
            const CalcError code = TakeCode();
            UintBuffer x = a;
            UintBuffer y = b;
            UintBuffer other;
            BigUintDivide(x, other, x, y);
            EXPECT_EQ(x, quotient);
            EXPECT_EQ(other, remainder);
            x = a;
            BigUintDivide(other, x, x, y);
            EXPECT_EQ(other, quotient);
            EXPECT_EQ(x, remainder);
            x = a;
            BigUintDivide(y, other, x, y);
            EXPECT_EQ(y, quotient);
            EXPECT_EQ(other, remainder);
            y = b;
            BigUintDivide(other, y, x, y);
            EXPECT_EQ(other, quotient);
            EXPECT_EQ(y, remainder);
            y = b;
            BigUintDivide(x, y, x, y);
            EXPECT_EQ(x, quotient);
            EXPECT_EQ(y, remainder);
            x = a;
            y = b;
            BigUintDivide(y, x, x, y);
            EXPECT_EQ(y, quotient);
            EXPECT_EQ(x, remainder);
            x = a;
            BigUintDivide(x, nullptr, x, x);
            EXPECT_EQ(x.Text(), "1");
            EXPECT_EQ(TakeCode(), code);
        }
    }
}

TEST(BigUintDivide, LeavesOutWhatIsNotAskedFor) {
    for (int64_t limbs : {2, 26}) {
        WidthScope scope(limbs);
        for (const char* divisor : {"10", "2^63", "2^65+1", "2^128-1"}) {
            const UintBuffer a("2^127+12345678901234567");
            const UintBuffer b(divisor);
            UintBuffer quotient;
            UintBuffer remainder;
            BigUintDivide(quotient, remainder, a, b);
            UintBuffer alone;
            BigUintDivide(alone, nullptr, a, b);
            EXPECT_EQ(alone, quotient);
            BigUintDivide(nullptr, alone, a, b);
            EXPECT_EQ(alone, remainder);
            BigUintDivide(nullptr, nullptr, a, b);
            EXPECT_EQ(TakeCode(), CalcErrorNone);
        }
    }
}

TEST(BigUintDivide, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(2);
    SetCalcError(CalcErrorOverflow);
    UintBuffer quotient;
    BigUintDivide(quotient, nullptr, UintBuffer("7"), UintBuffer("2"));
    EXPECT_EQ(TakeOutcome(quotient), (Outcome{"3", CalcErrorOverflow}));
    SetCalcError(CalcErrorOverflow);
    BigUintDivide(quotient, nullptr, UintBuffer("7"), UintBuffer("0"));
    EXPECT_EQ(TakeOutcome(quotient), (Outcome{"0", CalcErrorOverflow}));
}

TEST(BigUintDivide, PutsBackAWidthWhoseDigitsAreNotThoseOfItsLimbs) {
    ContextCheck check;
    UintWidthScope width;
    InstallUintWidth({501, 27});
    UintBuffer quotient;
    BigUintDivide(quotient, nullptr, UintBuffer("2^900"), UintBuffer("2^100+1"));
    BigUintDivide(quotient, nullptr, UintBuffer("2^900"), UintBuffer("0"));
    EXPECT_EQ(TakeCode(), CalcErrorExactDivisionByZero);
    EXPECT_EQ(CurrentUintWidth().digits, 501);
    EXPECT_EQ(CurrentUintWidth().limbs, 27);
}

TEST(BigUintDivideExact, TellsWhetherNothingRemains) {
    for (int64_t limbs : {2, 26, 1039}) {
        WidthScope scope(limbs);
        struct Row {
            const char* a;
            const char* b;
            const char* quotient;
            bool exact;
        };
        for (const Row& row :
             {Row{"12", "4", "3", true}, Row{"13", "4", "3", false}, Row{"0", "4", "0", true},
              Row{"3", "4", "0", false}, Row{"2^128-1", "2^64+1", "18446744073709551615", true},
              Row{"2^128-2", "2^64+1", "18446744073709551614", false}}) {
            UintBuffer quotient;
            EXPECT_EQ(BigUintDivideExact(quotient, UintBuffer(row.a), UintBuffer(row.b)), row.exact)
                << row.a;
            EXPECT_EQ(TakeOutcome(quotient), Silent(row.quotient));
        }
        UintBuffer x("2^127");
        EXPECT_TRUE(BigUintDivideExact(x, x, UintBuffer("2^65")));
        EXPECT_EQ(x.Text(), UintTextOf("2^62"));
    }
}

// What remains of a division by zero is 0.
TEST(BigUintDivideExact, CallsADivisionByZeroExactAndNotesItsCode) {
    WidthScope scope(2);
    UintBuffer quotient;
    EXPECT_TRUE(BigUintDivideExact(quotient, UintBuffer("5"), UintBuffer("0")));
    EXPECT_EQ(TakeOutcome(quotient), Refused(CalcErrorExactDivisionByZero));
}

TEST(BigUintDivideSmall, RefusesADivisorOfZero) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(DivideByWord("7", 0), ByZero());
        EXPECT_EQ(DivideByWord("0", 0), ByZero());
        BigUintDivideSmall(nullptr, nullptr, UintBuffer("7"), 0, 0);
        EXPECT_EQ(TakeCode(), CalcErrorExactDivisionByZero);
    }
}

TEST(BigUintDivideSmall, GivesHandCheckedQuotients) {
    WidthScope scope(3);
    EXPECT_EQ(DivideByWord("0", 3), (Division{"0", "0"}));
    EXPECT_EQ(DivideByWord("2", 3), (Division{"0", "2"}));
    EXPECT_EQ(DivideByWord("100000000000000000000000000000000000000007", 10),
              (Division{"10000000000000000000000000000000000000000", "7"}));
    EXPECT_EQ(DivideByWord("2^192-1", 1), (Division{UintTextOf("2^192-1"), "0"}));
    EXPECT_EQ(DivideByWord("2^192-1", uint64_t{1} << 63),
              (Division{UintTextOf("2^129-1"), "9223372036854775807"}));
    EXPECT_EQ(DivideByWord("2^192-1", 3),
              (Division{UintTextOf("0x555555555555555555555555555555555555555555555555"), "0"}));
    EXPECT_EQ(DivideByWord("2^192-1", 2001),
              DivideByWord("2^192-1", 2001, DivisorReciprocal(2001)));
}

// The reciprocal of 2^64 - 1, rounded down, has the bits that mark a power of two.
TEST(BigUintDivideSmall, DoesNotTakeTheLargestWordForAPowerOfTwo) {
    WidthScope scope(2);
    const uint64_t largest = ~uint64_t{0};
    for (uint64_t reciprocal : {uint64_t{0}, DivisorReciprocal(largest)}) {
        EXPECT_EQ(DivideByWord("2^128-1", largest, reciprocal),
                  (Division{UintTextOf("2^64+1"), "0"}));
        EXPECT_EQ(DivideByWord("2^64+4", largest, reciprocal), (Division{"1", "5"}));
    }
}

TEST(BigUintDivideSmall, DividesByEveryPowerOfTwo) {
    WidthScope scope(3);
    for (int k = 0; k < 64; k++) {
        const uint64_t power = uint64_t{1} << k;
        for (uint64_t reciprocal : {uint64_t{0}, DivisorReciprocal(power)}) {
            EXPECT_EQ(DivideByWord("2^192-1", power, reciprocal),
                      (Division{UintTextOf(TwoTo(192 - k, "-1")), std::to_string(power - 1)}));
        }
    }
}

TEST(BigUintDivideSmall, WritesOverItsOperandAndLeavesOutWhatIsNotAskedFor) {
    for (int64_t limbs : {1, 2, 26}) {
        WidthScope scope(limbs);
        for (uint64_t d : {uint64_t{1}, uint64_t{10}, uint64_t{1} << 40, ~uint64_t{0}}) {
            const UintBuffer a("12345678901234567890");
            UintBuffer quotient;
            uint64_t remainder = 0;
            BigUintDivideSmall(quotient, &remainder, a, d, 0);
            UintBuffer x = a;
            BigUintDivideSmall(x, nullptr, x, d, 0);
            EXPECT_EQ(x, quotient);
            uint64_t alone = 1;
            BigUintDivideSmall(nullptr, &alone, a, d, 0);
            EXPECT_EQ(alone, remainder);
            EXPECT_EQ(TakeCode(), CalcErrorNone);
        }
    }
}

}  // namespace
}  // namespace tallymere

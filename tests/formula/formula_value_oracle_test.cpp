// Values of formulas against GMP: random expression trees are written as text by the rules of
// precedence, and evaluated exactly as trees. Operands are chosen so that every step is exact.
#include <gmp.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/formula_testing.h"
#include "support/gmp_oracle.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A number numerator / 10^places.
struct Exact {
    Integer numerator;
    uint64_t places = 0;
};

void SetPlaces(Exact& x, uint64_t places) {
    Integer factor;
    mpz_ui_pow_ui(factor, 10, places - x.places);
    mpz_mul(x.numerator, x.numerator, factor);
    x.places = places;
}

bool IsInteger(Exact& x) {
    Integer unit;
    mpz_ui_pow_ui(unit, 10, x.places);
    return mpz_divisible_p(x.numerator, unit) != 0;
}

// How tightly an expression binds: what it needs of the place where it stands.
enum Level { Signed, Sum, Product, Atom };

struct Expression {
    std::string text;
    Level level = Atom;
    Exact value;
};

// The text in a place that needs at least `level`.
std::string InPlace(const Expression& part, Level level) {
    return part.level >= level ? part.text : "(" + part.text + ")";
}

class TreeWriter {
public:
    explicit TreeWriter(RandomSource& random) : random_(random) {}

    Expression Make(int depth) {
        if (depth == 0) {
            return Number();
        }
        switch (random_.Below(9)) {
            case 0:
                return Sign(depth);
            case 1:
                return Function(depth);
            case 2:
            case 3:
                return Binary(depth, '+');
            case 4:
            case 5:
                return Binary(depth, '-');
            case 6:
                return Binary(depth, '*');
            case 7:
                return Divide(depth);
            default:
                return Mod(depth);
        }
    }

private:
    Expression Number() {
        Expression number;
        const uint64_t value = random_.Below(random_.Below(3) == 0 ? 100'000 : 100);
        mpz_set_ui(number.value.numerator, value);
        number.text = std::to_string(value);
        if (random_.Below(3) == 0) {
            number.value.places = static_cast<uint64_t>(random_.Between(1, 3));
            std::string digits = number.text;
            if (digits.size() <= number.value.places) {
                digits.insert(0, number.value.places + 1 - digits.size(), '0');
            }
            number.text = digits.insert(digits.size() - number.value.places, ".");
        }
        return number;
    }

    Expression Sign(int depth) {
        Expression part = Make(depth - 1);
        part.text = "-" + InPlace(part, Product);
        part.level = Signed;
        mpz_neg(part.value.numerator, part.value.numerator);
        return part;
    }

    Expression Function(int depth) {
        Expression part = Make(depth - 1);
        part.level = Atom;
        Integer unit;
        mpz_ui_pow_ui(unit, 10, part.value.places);
        if (random_.Below(2) == 0) {
            part.text = "abs(" + part.text + ")";
            mpz_abs(part.value.numerator, part.value.numerator);
        } else {
            part.text = "trunc(" + part.text + ")";
            mpz_tdiv_q(part.value.numerator, part.value.numerator, unit);
            part.value.places = 0;
        }
        return part;
    }

    Expression Binary(int depth, char operation) {
        Expression left = Make(depth - 1);
        Expression right = Make(depth - 1);
        Expression whole;
        const Level level = operation == '*' ? Product : Sum;
        // A sign may begin a sum that stands where a sign may stand; else it needs parentheses.
        whole.level = level == Sum && left.level == Signed ? Signed : level;
        const Level leftLevel = level == Sum && left.level == Signed ? Signed : level;
        const Level rightLevel = level == Sum ? Product : Atom;
        whole.text = InPlace(left, leftLevel) + Spaced(operation) + InPlace(right, rightLevel);
        if (operation == '*') {
            mpz_mul(whole.value.numerator, left.value.numerator, right.value.numerator);
            whole.value.places = left.value.places + right.value.places;
            return whole;
        }
        const uint64_t places = std::max(left.value.places, right.value.places);
        SetPlaces(left.value, places);
        SetPlaces(right.value, places);
        whole.value.places = places;
        (operation == '+' ? mpz_add : mpz_sub)(whole.value.numerator, left.value.numerator,
                                               right.value.numerator);
        return whole;
    }

    // By a number whose quotients end after some places.
    Expression Divide(int depth) {
        Expression whole = Make(depth - 1);
        constexpr uint64_t divisors[] = {1, 2, 4, 5, 8, 10, 16, 25};
        const uint64_t divisor = divisors[random_.Below(8)];
        whole.text = InPlace(whole, Product) + "/" + std::to_string(divisor);
        whole.level = Product;
        SetPlaces(whole.value, whole.value.places + 4);
        mpz_divexact_ui(whole.value.numerator, whole.value.numerator, divisor);
        return whole;
    }

    Expression Mod(int depth) {
        Expression left = Make(depth - 1);
        Expression right = Make(depth - 1);
        const uint64_t places = std::max(left.value.places, right.value.places);
        SetPlaces(left.value, places);
        SetPlaces(right.value, places);
        if (right.value.numerator.Sign() == 0) {
            return left;
        }
        Expression whole;
        whole.level = Product;
        whole.text = InPlace(left, Product) + " mod " + InPlace(right, Atom);
        whole.value = left.value;
        if (mpz_cmpabs(left.value.numerator, right.value.numerator) >= 0) {
            // The remainder has the sign of the quotient.
            mpz_tdiv_r(whole.value.numerator, left.value.numerator, right.value.numerator);
            if (right.value.numerator.Sign() < 0) {
                mpz_neg(whole.value.numerator, whole.value.numerator);
            }
        }
        return whole;
    }

    std::string Spaced(char operation) {
        return random_.Below(4) == 0 ? std::string(" ") + operation + " "
                                     : std::string(1, operation);
    }

    RandomSource& random_;
};

// The value as PlainText writes it; zeros of either sign are "0".
std::string ExactText(Exact& x) {
    if (x.numerator.Sign() == 0) {
        return "0";
    }
    char* digits = mpz_get_str(nullptr, 10, x.numerator);
    const RealBuffer number(std::string(digits) + "e-" + std::to_string(x.places));
    void (*release)(void*, size_t) = nullptr;
    mp_get_memory_functions(nullptr, nullptr, &release);
    release(digits, std::char_traits<char>::length(digits) + 1);
    return PlainText(number);
}

TEST(FormulaValues, OfRandomTreesAreExact) {
    RandomSource random;
    int wholes = 0;
    for (const int64_t p : {300, 317, 500}) {
        FormulaScope scope(p);
        for (int i = TestRounds(30'000); i > 0; i--) {
            Expression tree = TreeWriter(random).Make(static_cast<int>(random.Below(5)));
            const FormulaOutcome outcome =
                Evaluate(std::u16string(tree.text.begin(), tree.text.end()));
            ASSERT_EQ(outcome.error, uint32_t{FormulaErrorNone}) << tree.text;
            const std::string value = outcome.value == "-0" ? "0" : outcome.value;
            ASSERT_EQ(value, ExactText(tree.value)) << tree.text;
            wholes += IsInteger(tree.value) ? 1 : 0;
        }
    }
    EXPECT_GT(wholes, TestRounds(10'000));
}

}  // namespace
}  // namespace tallymere

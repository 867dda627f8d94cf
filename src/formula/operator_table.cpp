#include "formula/operator_table.h"

#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "formula/complex_operators.h"
#include "formula/formula_names.h"
#include "formula/name_index.h"
#include "formula/rational_operators.h"
#include "formula/real_operators.h"
#include "formula/real_power.h"
#include "formula/uint_operators.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// The columns of the table want an OperatorRoutine. Each of the templates below makes one of a
// routine that works on the numbers of one type, either dest = a (operator) b or in the place of a.

template <void (*Routine)(RealNumber*, const RealNumber*, const RealNumber*)>
void Real(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(RealAt(left), RealAt(left), RealAt(right));
}

template <void (*Routine)(RealNumber*, const RealNumber*)>
void Real(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(RealAt(left), RealAt(right));
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*, const ComplexNumber*)>
void Complex(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(ComplexAt(left), ComplexAt(left), ComplexAt(right));
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*)>
void Complex(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(ComplexAt(left), ComplexAt(right));
}

template <void (*Routine)(uint64_t*, const uint64_t*, const uint64_t*)>
void Uint(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(left, left, right);
}

template <void (*Routine)(uint64_t*, const uint64_t*)>
void Uint(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(left, right);
}

// Of a routine that rounds down and is true when its result is exact.
template <bool (*Routine)(uint64_t*, const uint64_t*, const uint64_t*)>
void Uint(FormulaEvaluator& evaluator, uint64_t* left, const uint64_t* right) {
    NoteExactness(evaluator, Routine(left, left, right));
}

template <void (*Routine)(RationalNumber*, const RationalNumber*)>
void Rational(FormulaEvaluator&, uint64_t* left, const uint64_t* right) {
    Routine(RationalAt(left), RationalAt(right));
}

void KeepValue(uint64_t*) {}

// uint has no such sign: CalcErrorUnknownType.
void NegateValue(uint64_t* value) {
    ValueNegate(value, value);
}

constexpr SignRoutine NoSign = nullptr;
constexpr Associativity LeftToRight = Associativity::LeftToRight;
constexpr Associativity RightToLeft = Associativity::RightToLeft;

// A sign binds like a sum, so -2^2 is -4 and -3 mod 2 is -(3 mod 2). It stays so, as formulas that
// users have kept rely on it.
constexpr int32_t SumLevel = 1;
constexpr int32_t ProductLevel = 2;
constexpr int32_t PowerLevel = 3;

using Id = OperatorId;

}  // namespace

// clang-format off
constexpr OperatorRow OperatorTable[OperatorCount] = {
    // id, spelling, level, associativity, sign,
    //     {real, cplx, uint, rat}
    {Id::Add, u"+", SumLevel, LeftToRight, KeepValue,
        {Real<RealAdd>, Complex<ComplexAdd>, Uint<BigUintAdd>, Rational<RationalAddTo>}},
    {Id::Subtract, u"-", SumLevel, LeftToRight, NegateValue,
        {Real<RealSub>, Complex<ComplexSub>, Uint<BigUintSub>, Rational<RationalSubtractFrom>}},
    {Id::Multiply, u"*", ProductLevel, LeftToRight, NoSign,
        {Real<RealMultiplyBy>, Complex<ComplexMultiplyBy>, Uint<UintMultiplyBy>, Rational<RationalMultiplyBy>}},
    {Id::Divide, u"/", ProductLevel, LeftToRight, NoSign,
        {Real<RealDivideBy>, Complex<ComplexDivideBy>, Uint<BigUintDivideExact>, Rational<RationalDivideBy>}},
    {Id::Mod, u"mod", ProductLevel, LeftToRight, NoSign,
        {Real<RealReduceModulo>, Complex<ComplexReduceModulo>, Uint<UintReduceModulo>, Rational<RationalReduceModulo>}},
    {Id::Power, u"^", PowerLevel, RightToLeft, NoSign,
        {Real<RealApplyPower>, Complex<ComplexRaiseTo>, Uint<UintRaiseTo>, Rational<RationalRaiseTo>}},
};
// clang-format on

namespace {

constexpr Id FirstIdWithoutItsRow() {
    for (int64_t i = 0; i < OperatorCount; i++) {
        const OperatorRow& row = OperatorTable[i];
        if (row.id != static_cast<Id>(i) || row.spelling == nullptr) {
            return static_cast<Id>(i);
        }
    }
    return Id::Count;
}

// A template, so that the compiler names the id.
template <Id FirstWithoutItsRow>
struct EveryIdHasItsRow {
    static_assert(FirstWithoutItsRow == Id::Count,
                  "the rows stand in the order of the ids, one for each");
};
template struct EveryIdHasItsRow<FirstIdWithoutItsRow()>;

constexpr bool ALevelHasOneAssociativity() {
    for (const OperatorRow& a : OperatorTable) {
        for (const OperatorRow& b : OperatorTable) {
            if (a.level == b.level && a.associativity != b.associativity) {
                return false;
            }
        }
    }
    return true;
}
static_assert(ALevelHasOneAssociativity());

constexpr auto Spellings = MakeNameIndex(OperatorTable, &OperatorRow::spelling);

}  // namespace

bool IsWordOperator(const OperatorRow& row) {
    return IsNameLetter(row.spelling[0]);
}

const OperatorRow* FindWordOperator(const char16_t* text, uint64_t length) {
    for (size_t i = Spellings.FirstRow(text[0]); i != Spellings.End; i = Spellings.next[i]) {
        if (NameEquals(OperatorTable[i].spelling, text, length)) {
            return &OperatorTable[i];
        }
    }
    return nullptr;
}

const OperatorRow* FindSymbolOperator(const char16_t* text, uint64_t* length) {
    return FindLongestName(OperatorTable, &OperatorRow::spelling, Spellings, text, length);
}

}  // namespace tallymere

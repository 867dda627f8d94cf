#include "formula/function_table.h"

#include "core/complex_number.h"
#include "core/contract.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_mod_power.h"
#include "exact/big_uint_roots.h"
#include "exact/rational_arithmetic.h"
#include "exact/rational_combinatorics.h"
#include "exact/rational_powers.h"
#include "formula/angles.h"
#include "formula/complex_evaluation.h"
#include "formula/formula_names.h"
#include "formula/name_index.h"
#include "formula/rational_evaluation.h"
#include "formula/real_evaluation.h"
#include "formula/uint_evaluation.h"
#include "functions/combinatorics.h"
#include "functions/complex_modulus.h"
#include "functions/exponential.h"
#include "functions/factorial.h"
#include "functions/hyperbolic.h"
#include "functions/logarithm.h"
#include "functions/roots.h"

namespace tallymere {

namespace {

// The columns of the table want a FunctionRoutine. Each of the templates below makes one of a
// routine that works on the numbers of one type: Real, Complex, Uint and Rational, for the forms
// that such routines have.

template <void (*Routine)(RealNumber*, const RealNumber*)>
void Real(const FunctionCall& call) {
    Routine(RealAt(call.dest), RealAt(call.arguments[0]));
}

template <void (*Routine)(RealNumber*, const RealNumber*, const RealNumber*)>
void Real(const FunctionCall& call) {
    Routine(RealAt(call.dest), RealAt(call.arguments[0]), RealAt(call.arguments[1]));
}

// Of an angle, or with an angle as its value.
template <void (*Routine)(RealNumber*, const RealNumber*, AngleUnit)>
void Real(const FunctionCall& call) {
    Routine(RealAt(call.dest), RealAt(call.arguments[0]), call.row.unit);
}

// Likewise, of a routine that is false at a pole. That is an error at the function.
template <bool (*Routine)(RealNumber*, const RealNumber*, AngleUnit)>
void Real(const FunctionCall& call) {
    if (!Routine(RealAt(call.dest), RealAt(call.arguments[0]), call.row.unit)) {
        SetFormulaError(call.evaluator, FormulaErrorOperationFailed, call.function);
    }
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*)>
void Complex(const FunctionCall& call) {
    Routine(ComplexAt(call.dest), ComplexAt(call.arguments[0]));
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*, AngleUnit)>
void Complex(const FunctionCall& call) {
    Routine(ComplexAt(call.dest), ComplexAt(call.arguments[0]), call.row.unit);
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*, const ComplexNumber*)>
void Complex(const FunctionCall& call) {
    Routine(ComplexAt(call.dest), ComplexAt(call.arguments[0]), ComplexAt(call.arguments[1]));
}

template <void (*Routine)(ComplexNumber*, const ComplexNumber*, const ComplexNumber*,
                          const ComplexNumber*)>
void Complex(const FunctionCall& call) {
    Routine(ComplexAt(call.dest), ComplexAt(call.arguments[0]), ComplexAt(call.arguments[1]),
            ComplexAt(call.arguments[2]));
}

template <void (*Routine)(uint64_t*, const uint64_t*)>
void Uint(const FunctionCall& call) {
    Routine(call.dest, call.arguments[0]);
}

template <void (*Routine)(uint64_t*, const uint64_t*, const uint64_t*)>
void Uint(const FunctionCall& call) {
    Routine(call.dest, call.arguments[0], call.arguments[1]);
}

template <void (*Routine)(uint64_t*, const uint64_t*, const uint64_t*, const uint64_t*)>
void Uint(const FunctionCall& call) {
    Routine(call.dest, call.arguments[0], call.arguments[1], call.arguments[2]);
}

// Of a routine that rounds down and is true when its result is exact.
template <bool (*Routine)(uint64_t*, const uint64_t*)>
void Uint(const FunctionCall& call) {
    NoteExactness(call.evaluator, Routine(call.dest, call.arguments[0]));
}

template <bool (*Routine)(uint64_t*, const uint64_t*, const uint64_t*)>
void Uint(const FunctionCall& call) {
    NoteExactness(call.evaluator, Routine(call.dest, call.arguments[0], call.arguments[1]));
}

template <void (*Routine)(RationalNumber*, const RationalNumber*)>
void Rational(const FunctionCall& call) {
    Routine(RationalAt(call.dest), RationalAt(call.arguments[0]));
}

template <void (*Routine)(RationalNumber*, const RationalNumber*, const RationalNumber*)>
void Rational(const FunctionCall& call) {
    Routine(RationalAt(call.dest), RationalAt(call.arguments[0]), RationalAt(call.arguments[1]));
}

// Calls the routine of real, which a row with these rules has, with the parts of all values that
// begin so many words behind the values: 0 for the real parts, RealWords() for the imaginary ones.
void CallRealOnParts(const FunctionCall& call, int64_t offset) {
    TALLYMERE_REQUIRE(call.row.routines.real != nullptr);
    FunctionCall ofParts = {call.evaluator, call.function, call.row, call.dest + offset, {}};
    for (int64_t i = 0; i < ArgumentCount(call.row); i++) {
        ofParts.arguments[i] = call.arguments[i] + offset;
    }
    TALLYMERE_REQUIRE(call.row.routines.real != nullptr);
    call.row.routines.real(ofParts);
}

// Two rules for cplx that make use of the routine of real in the same row.

// The function takes values without an imaginary part alone, and so is its result. Any other value
// gives NaN and CalcErrorComplexNotAllowed.
void RealValuesOnly(const FunctionCall& call) {
    for (int64_t i = 0; i < ArgumentCount(call.row); i++) {
        if (!ComplexIsReal(ComplexAt(call.arguments[i]))) {
            ComplexSetNaN(ComplexAt(call.dest), CalcErrorComplexNotAllowed);
            return;
        }
    }
    CallRealOnParts(call, 0);
    ComplexClearImaginaryPart(ComplexAt(call.dest));
}

// The function treats the two parts of a value each alone.
void PartByPart(const FunctionCall& call) {
    CallRealOnParts(call, 0);
    CallRealOnParts(call, RealWords());
}

// What the columns hold where they hold no routine, no unit and no error.
constexpr FunctionRoutine None = nullptr;
constexpr AngleUnit NoAngle = AngleUnit::None;
constexpr FormulaError NoOwnError = FormulaErrorNone;

using Id = FunctionId;

}  // namespace

// clang-format off
constexpr FunctionRow FunctionTable[FunctionCount] = {
    // id, name, parameters, unit, refusal,
    //     {real, cplx, uint, rat}
    {Id::Sqrt, u"sqrt", u"x", NoAngle, NoOwnError,
        {Real<RealSqrtRounded>, RealValuesOnly, Uint<BigUintSquareRoot>, Rational<RationalSquareRoot>}},
    {Id::Cbrt, u"cbrt", u"x", NoAngle, NoOwnError,
        {Real<RealCbrtRounded>, RealValuesOnly, Uint<UintCubeRoot>, Rational<RationalCubeRoot>}},
    {Id::Root, u"root", u"n; x", NoAngle, NoOwnError,
        {Real<RealRootRounded>, RealValuesOnly, Uint<BigUintRoot>, Rational<RationalRoot>}},
    {Id::Ln, u"ln", u"x", NoAngle, NoOwnError,
        {Real<RealLnRounded>, RealValuesOnly, None, None}},
    {Id::Log2, u"log2", u"x", NoAngle, NoOwnError,
        {Real<RealLog2Rounded>, RealValuesOnly, Uint<BigUintLogTwo>, Rational<RationalLogTwo>}},
    {Id::Log10, u"log10", u"x", NoAngle, NoOwnError,
        {Real<RealLog10Rounded>, RealValuesOnly, Uint<BigUintLogTen>, Rational<RationalLogTen>}},
    {Id::LogX, u"logx", u"b; x", NoAngle, NoOwnError,
        {Real<RealLogRounded>, RealValuesOnly, Uint<BigUintLog>, Rational<RationalLog>}},
    {Id::Exp, u"exp", u"x", NoAngle, NoOwnError,
        {Real<RealExpRounded>, RealValuesOnly, None, None}},

    {Id::Sin, u"sin", u"x", AngleUnit::Radians, NoOwnError,
        {Real<SineOfAngle>, RealValuesOnly, None, None}},
    {Id::Cos, u"cos", u"x", AngleUnit::Radians, NoOwnError,
        {Real<CosineOfAngle>, RealValuesOnly, None, None}},
    {Id::Tan, u"tan", u"x", AngleUnit::Radians, NoOwnError,
        {Real<TangentOfAngle>, RealValuesOnly, None, None}},
    {Id::Asin, u"asin", u"x", AngleUnit::Radians, NoOwnError,
        {Real<AngleOfSine>, RealValuesOnly, None, None}},
    {Id::Acos, u"acos", u"x", AngleUnit::Radians, NoOwnError,
        {Real<AngleOfCosine>, RealValuesOnly, None, None}},
    {Id::Atan, u"atan", u"x", AngleUnit::Radians, NoOwnError,
        {Real<AngleOfTangent>, RealValuesOnly, None, None}},
    {Id::SinDegrees, u"sind", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<SineOfAngle>, RealValuesOnly, None, None}},
    {Id::CosDegrees, u"cosd", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<CosineOfAngle>, RealValuesOnly, None, None}},
    {Id::TanDegrees, u"tand", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<TangentOfAngle>, RealValuesOnly, None, None}},
    {Id::AsinDegrees, u"asind", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<AngleOfSine>, RealValuesOnly, None, None}},
    {Id::AcosDegrees, u"acosd", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<AngleOfCosine>, RealValuesOnly, None, None}},
    {Id::AtanDegrees, u"atand", u"x", AngleUnit::Degrees, NoOwnError,
        {Real<AngleOfTangent>, RealValuesOnly, None, None}},
    {Id::SinGon, u"sing", u"x", AngleUnit::Gon, NoOwnError,
        {Real<SineOfAngle>, RealValuesOnly, None, None}},
    {Id::CosGon, u"cosg", u"x", AngleUnit::Gon, NoOwnError,
        {Real<CosineOfAngle>, RealValuesOnly, None, None}},
    {Id::TanGon, u"tang", u"x", AngleUnit::Gon, NoOwnError,
        {Real<TangentOfAngle>, RealValuesOnly, None, None}},
    {Id::AsinGon, u"asing", u"x", AngleUnit::Gon, NoOwnError,
        {Real<AngleOfSine>, RealValuesOnly, None, None}},
    {Id::AcosGon, u"acosg", u"x", AngleUnit::Gon, NoOwnError,
        {Real<AngleOfCosine>, RealValuesOnly, None, None}},
    {Id::AtanGon, u"atang", u"x", AngleUnit::Gon, NoOwnError,
        {Real<AngleOfTangent>, RealValuesOnly, None, None}},

    {Id::Sinh, u"sinh", u"x", NoAngle, NoOwnError,
        {Real<RealSinhRounded>, RealValuesOnly, None, None}},
    {Id::Cosh, u"cosh", u"x", NoAngle, NoOwnError,
        {Real<RealCoshRounded>, RealValuesOnly, None, None}},
    {Id::Tanh, u"tanh", u"x", NoAngle, NoOwnError,
        {Real<RealTanhRounded>, RealValuesOnly, None, None}},
    {Id::Asinh, u"asinh", u"x", NoAngle, NoOwnError,
        {Real<RealAsinhRounded>, RealValuesOnly, None, None}},
    {Id::Acosh, u"acosh", u"x", NoAngle, NoOwnError,
        {Real<RealAcoshRounded>, RealValuesOnly, None, None}},
    {Id::Atanh, u"atanh", u"x", NoAngle, NoOwnError,
        {Real<RealAtanhRounded>, RealValuesOnly, None, None}},

    {Id::Abs, u"abs", u"x", NoAngle, NoOwnError,
        {Real<RealAbs>, Complex<ComplexAbs>, Uint<BigUintCopy>, Rational<RationalMagnitude>}},
    {Id::Trunc, u"trunc", u"x", NoAngle, NoOwnError,
        {Real<RealIntegerPart>, PartByPart, Uint<BigUintCopy>, Rational<RationalTrunc>}},
    {Id::Frac, u"frac", u"x", NoAngle, NoOwnError,
        {Real<RealFractionPart>, PartByPart, Uint<UintFraction>, Rational<RationalFraction>}},
    {Id::Round, u"round", u"x", NoAngle, NoOwnError,
        {Real<RealRoundToInteger>, PartByPart, Uint<UintLeaveUnwritten>, Rational<RationalRound>}},

    {Id::Fact, u"fact", u"n", NoAngle, NoOwnError,
        {Real<RealFactorialRounded>, RealValuesOnly, Uint<BigUintFactorial>, Rational<RationalFactorial>}},
    {Id::Ncr, u"ncr", u"n; k", NoAngle, NoOwnError,
        {Real<RealCombinations>, RealValuesOnly, Uint<UintCombinations>, Rational<RationalCombinations>}},
    {Id::Npr, u"npr", u"n; k", NoAngle, NoOwnError,
        {Real<RealPermutations>, RealValuesOnly, Uint<UintPermutations>, Rational<RationalPermutations>}},
    {Id::Gcd, u"gcd", u"a; b", NoAngle, NoOwnError,
        {Real<RealGcdRounded>, RealValuesOnly, Uint<BigUintGcd>, Rational<RationalGcd>}},
    {Id::Lcm, u"lcm", u"a; b", NoAngle, NoOwnError,
        {Real<RealLcmRounded>, RealValuesOnly, Uint<BigUintLcm>, Rational<RationalLcm>}},
    {Id::PowMod, u"powmod", u"a; e; m", NoAngle, FormulaErrorNotAvailable,
        {None, None, Uint<BigUintModPower>, None}},

    {Id::RealPart, u"realp", u"z", NoAngle, FormulaErrorNeedsComplex,
        {None, Complex<ComplexTakeRealPart>, None, None}},
    {Id::ImaginaryPart, u"imagp", u"z", NoAngle, FormulaErrorNeedsComplex,
        {None, Complex<ComplexTakeImaginaryPart>, None, None}},
    {Id::Arg, u"arg", u"z", AngleUnit::Radians, FormulaErrorNeedsComplex,
        {None, Complex<ComplexAngle>, None, None}},
    {Id::ArgDegrees, u"argd", u"z", AngleUnit::Degrees, FormulaErrorNeedsComplex,
        {None, Complex<ComplexAngle>, None, None}},
    {Id::ArgGon, u"argg", u"z", AngleUnit::Gon, FormulaErrorNeedsComplex,
        {None, Complex<ComplexAngle>, None, None}},
    {Id::ComplexSqrt, u"sqrtc", u"z; k", NoAngle, FormulaErrorNeedsComplex,
        {None, Complex<ComplexSqrtOfBranch>, None, None}},
    {Id::ComplexCbrt, u"cbrtc", u"z; k", NoAngle, FormulaErrorNeedsComplex,
        {None, Complex<ComplexCbrtOfBranch>, None, None}},
    {Id::ComplexRoot, u"rootc", u"n; z; k", NoAngle, FormulaErrorNeedsComplex,
        {None, Complex<ComplexRootOfBranch>, None, None}},
};
// clang-format on

namespace {

constexpr Id FirstIdWithoutItsRow() {
    for (int64_t i = 0; i < FunctionCount; i++) {
        const FunctionRow& row = FunctionTable[i];
        if (row.id != static_cast<Id>(i) || row.name == nullptr) {
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

constexpr bool ArgumentsFitACall() {
    for (const FunctionRow& row : FunctionTable) {
        if (ArgumentCount(row) > MaxFunctionArguments) {
            return false;
        }
    }
    return true;
}
static_assert(ArgumentsFitACall());

constexpr auto Names = MakeNameIndex(FunctionTable, &FunctionRow::name);

}  // namespace

const FunctionRow* FindFunction(const char16_t* text, uint64_t length) {
    for (size_t i = Names.FirstRow(text[0]); i != Names.End; i = Names.next[i]) {
        if (NameEquals(FunctionTable[i].name, text, length)) {
            return &FunctionTable[i];
        }
    }
    return nullptr;
}

}  // namespace tallymere

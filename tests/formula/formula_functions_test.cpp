// Every function of formulas by its name, in the types real and cplx: its value, the order of its
// arguments, and what it refuses.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/real_rounding.h"
#include "formula/function_table.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct KnownValue {
    const char16_t* formula;
    const char* digits;  // up to 40 of them
};

// From an independent library at 80 digits.
constexpr KnownValue KnownValues[] = {
    {u"sqrt(7)", "2.64575131106459059050161575363926042571"},
    {u"cbrt(-7)", "-1.912931182772389101199116839548760282862"},
    {u"ln(7)", "1.945910149055313305105352743443179729637"},
    {u"log2(7)", "2.807354922057604107441969317231830808641"},
    {u"log10(7)", "0.8450980400142568307122162585926361934836"},
    {u"exp(0.7)", "2.013752707470476521624549388583065270018"},
    {u"abs(-0.7)", "0.7"},
    {u"sin(0.7)", "0.6442176872376910536726143513987201830658"},
    {u"cos(0.7)", "0.7648421872844884262558599901918649092682"},
    {u"tan(0.7)", "0.8422883804630794481281350022129377171872"},
    {u"asin(0.7)", "0.7753974966107530637403533527149871135558"},
    {u"acos(0.7)", "0.7953988301841435554909683389247643285428"},
    {u"atan(0.7)", "0.6107259643892086165437588764902360938185"},
    {u"sind(7)", "0.1218693434051474811128939192315251760132"},
    {u"cosd(7)", "0.9925461516413220349800615893305841090437"},
    {u"tand(7)", "0.1227845609029045911342311360528595952823"},
    {u"asind(0.7)", "44.42700400080570372674461224585998136793"},
    {u"acosd(0.7)", "45.57299599919429627325538775414001863207"},
    {u"atand(0.7)", "34.99202019855866210692289103045806653141"},
    {u"sing(7)", "0.1097343110910452680244775183389872446789"},
    {u"cosg(7)", "0.9939609554551796877532123320716365138401"},
    {u"tang(7)", "0.1104010278158189449762031564829327432386"},
    {u"asing(0.7)", "49.36333777867300414082734693984442374214"},
    {u"acosg(0.7)", "50.63666222132699585917265306015557625786"},
    {u"atang(0.7)", "38.88002244284295789658099003384229614601"},
    {u"sinh(0.7)", "0.7585837018395335034598746475927681541549"},
    {u"cosh(0.7)", "1.255169005630943018164674740990297115863"},
    {u"tanh(0.7)", "0.6043677771171634963086871831038264750156"},
    {u"asinh(0.7)", "0.6526665660823557868086863441096758974424"},
    {u"acosh(7)", "2.633915793849633417250092694615936888054"},
    {u"atanh(0.7)", "0.8673005276940531944271446904753004154704"},
    {u"fact(30)", "265252859812191058636308480000000"},
    {u"trunc(-7.6)", "-7"},
    {u"frac(-7.6)", "-0.6"},
    {u"round(-7.6)", "-8"},
    {u"root(5;7)", "1.475773161594552069276916695632244106544"},
    {u"logx(5;7)", "1.209061955122167556763316345547360071117"},
    {u"ncr(30;4)", "27405"},
    {u"npr(30;4)", "657720"},
    {u"gcd(84;60)", "12"},
    {u"lcm(84;60)", "420"},
    {u"pi", "3.141592653589793238462643383279502884197"},
    {u"\u03C0", "3.141592653589793238462643383279502884197"},
    {u"2^0.7", "1.62450479271247104521941876555056330257"},
    {u"10^0.7", "5.011872336272722850015541868849457680605"},
    {u"7^0.7", "3.904528777122722047700993695100960037974"},
};

// The same for what only the type cplx has.
struct KnownComplex {
    const char16_t* formula;
    const char* realPart;
    const char* imaginaryPart;
};

constexpr KnownComplex KnownComplexValues[] = {
    {u"abs(2-7i)", "7.280109889280518271097302491527032793778", "0"},
    {u"arg(2-7i)", "-1.292496667789785267903091421407081684585", "0"},
    {u"argd(2-7i)", "-74.05460409907714520234231047673890574149", "0"},
    {u"argg(2-7i)", "-82.28289344341905022482478941859878415721", "0"},
    {u"realp(2-7i)", "2", "0"},
    {u"imagp(2-7i)", "-7", "0"},
    {u"trunc(2.6-7.6i)", "2", "-7"},
    {u"frac(2.6-7.6i)", "0.6", "-0.6"},
    {u"round(2.6-7.6i)", "3", "-8"},
    {u"sqrtc(2-7i;0)", "2.154078676520488453894741357888493877993",
     "-1.624824588883445946095005335459576798317"},
    {u"sqrtc(2-7i;1)", "-2.154078676520488453894741357888493877993",
     "1.624824588883445946095005335459576798317"},
    {u"cbrtc(2-7i;0)", "1.761006217662469069623024383537165539397",
     "-0.8094089544693687269243093834952159102282"},
    {u"cbrtc(2-7i;1)", "-0.179534392210159166998898581664042624126",
     "1.929780597952731191783119215839989453171"},
    {u"cbrtc(2-7i;2)", "-1.581471825452309902624125801873122915271",
     "-1.120371643483362464858809832344773542943"},
    {u"rootc(5;2-7i;0)", "1.437980032257564094687095863024490050331",
     "-0.3802239459905854821408198690421163865565"},
    {u"rootc(5;2-7i;2)", "-0.9398602556464884821351692283518104270389",
     "1.152831090026736768211079338439669270457"},
    {u"rootc(5;2-7i;4)", "0.08274580605361954599968641507377032247203",
     "-1.485095940960264532815112606718339993503"},
    {u"rootc(5;7i-2;3)", "-0.8059747290252252526164019596057675877627",
     "-1.250104619001478398570359802443380987347"},
    {u"(2-7i)^(-5)", "0.00004811625265411456741835331066085879600811",
     "0.000008720801780616033563996348473320347333346"},
    {u"(1.5+i)/(2-7i)", "-0.07547169811320754716981132075471698113208",
     "0.2358490566037735849056603773584905660377"},
};

// A part of a value of 42 digits, at 40.
std::string AtFortyDigits(const std::string& part) {
    FormulaScope scope(42);
    RealBuffer x(part);
    if (!RealIsSpecial(x)) {
        RealRoundDigits(x, x, 40);
    }
    return PlainText(x);
}

// The value of a formula as a calculator of 40 digits has it: at two more, and then rounded.
std::string CalculatorValue(std::u16string_view formula, NumberType type) {
    FormulaScope scope(42, type);
    const FormulaOutcome outcome = Evaluate(formula);
    EXPECT_EQ(outcome.error, uint32_t{FormulaErrorNone}) << Printable(formula);
    if (outcome.error != FormulaErrorNone) {
        return "";
    }
    const size_t comma = outcome.value.find(", ");
    if (comma == std::string::npos) {
        return AtFortyDigits(outcome.value);
    }
    return AtFortyDigits(outcome.value.substr(0, comma)) + ", " +
           AtFortyDigits(outcome.value.substr(comma + 2));
}

std::string KnownText(const char* digits) {
    FormulaScope scope(42);
    return PlainText(RealBuffer(digits));
}

// The function that a formula begins with.
std::u16string_view FunctionOf(std::u16string_view formula) {
    return formula.substr(0, formula.find(u'('));
}

// True for the functions that treat each part of a complex value alone; their argument here has a
// sign, and with it -0 as imaginary part.
bool IsByParts(std::u16string_view formula) {
    const std::u16string_view function = FunctionOf(formula);
    return function == u"trunc" || function == u"frac" || function == u"round";
}

TEST(Functions, HaveKnownValuesInReal) {
    for (const KnownValue& known : KnownValues) {
        EXPECT_EQ(CalculatorValue(known.formula, NumberTypeReal), KnownText(known.digits))
            << Printable(known.formula);
    }
}

TEST(Functions, HaveTheSameValuesForRealArgumentsInCplx) {
    for (const KnownValue& known : KnownValues) {
        EXPECT_EQ(CalculatorValue(known.formula, NumberTypeComplex),
                  KnownText(known.digits) + (IsByParts(known.formula) ? ", -0" : ", 0"))
            << Printable(known.formula);
    }
}

TEST(Functions, HaveKnownValuesForComplexArguments) {
    for (const KnownComplex& known : KnownComplexValues) {
        EXPECT_EQ(CalculatorValue(known.formula, NumberTypeComplex),
                  KnownText(known.realPart) + ", " + KnownText(known.imaginaryPart))
            << Printable(known.formula);
    }
}

// What takes real values alone refuses each argument that is not real, at the `)`.
TEST(Functions, ThatAreRealOnlyRefuseOtherValues) {
    FormulaScope scope(20, NumberTypeComplex);
    for (const KnownValue& known : KnownValues) {
        const std::u16string_view function = FunctionOf(known.formula);
        const FunctionRow* row = FindFunction(function.data(), function.size());
        if (row == nullptr || function == u"abs" || IsByParts(function)) {
            continue;
        }
        for (int64_t complexOne = 0; complexOne < ArgumentCount(*row); complexOne++) {
            std::u16string formula = u"1+" + std::u16string(function) + u"(";
            for (int64_t i = 0; i < ArgumentCount(*row); i++) {
                formula += i == 0 ? u"" : u";";
                formula += i == complexOne ? u"3+i" : u"3";
            }
            EXPECT_EQ(Evaluate(formula + u")*2"),
                      Failure(FormulaErrorOperationFailed, formula.size() + 1, 1))
                << Printable(formula);
        }
    }
}

TEST(Functions, OfCplxNeedThatType) {
    FormulaScope scope(20);
    for (const char16_t* formula : {u"arg(3)", u"argd(3)", u"argg(3)", u"realp(3)", u"imagp(3)",
                                    u"sqrtc(3;1)", u"cbrtc(3;1)", u"rootc(2;3;1)"}) {
        const uint64_t length = FunctionOf(formula).size();
        EXPECT_EQ(Evaluate(formula), Failure(FormulaErrorNeedsComplex, 1, length));
        EXPECT_EQ(Evaluate(std::u16string(u"2*(1+") + formula + u")"),
                  Failure(FormulaErrorNeedsComplex, 6, length));
    }
}

TEST(Functions, PowmodIsNotAvailable) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope scope(20, type);
        EXPECT_EQ(Evaluate(u"2*powmod(2;3;5)"), Failure(FormulaErrorNotAvailable, 3, 6));
    }
}

// Errors of arithmetic stand at the token that ends the arguments.
TEST(Functions, OutsideTheirDomainFailAtTheParenthesis) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope scope(20, type);
        for (const char16_t* formula :
             {u"sqrt(-4)",    u"ln(0)",      u"ln(-1)",     u"log2(-1)",    u"log10(0)",
              u"exp(1e30)",   u"asin(1.1)",  u"acos(-2)",   u"asind(2)",    u"acosg(2)",
              u"sin(1e20)",   u"cosd(1e25)", u"tang(1e25)", u"cosh(1e30)",  u"acosh(0.5)",
              u"acosh(1.09)", u"atanh(1)",   u"atanh(1.5)", u"fact(-1)",    u"fact(2.5)",
              u"fact(1e30)",  u"root(0;5)",  u"root(2;-4)", u"root(2.5;4)", u"logx(1;5)",
              u"logx(2;-5)",  u"ncr(5;-1)",  u"npr(5;2.5)", u"gcd(1.5;3)",  u"gcd(0;5)",
              u"lcm(0;3)",    u"tan(2e19)",  u"sinh(-1e30)"}) {
            const std::u16string text = formula;
            EXPECT_EQ(Evaluate(text), Failure(FormulaErrorOperationFailed, text.size(), 1))
                << Printable(text);
            EXPECT_EQ(Evaluate(u"1+" + text + u"*2"),
                      Failure(FormulaErrorOperationFailed, text.size() + 2, 1))
                << Printable(text);
        }
    }
}

TEST(Functions, TakeBranchesWithinTheirBounds) {
    FormulaScope scope(20, NumberTypeComplex);
    for (const char16_t* formula :
         {u"sqrtc(-4;2)", u"sqrtc(-4;-1)", u"sqrtc(-4;0.5)", u"sqrtc(-4;i)", u"sqrtc(-4;1e19)",
          u"cbrtc(8;3)", u"cbrtc(8;-1)", u"rootc(4;1;4)", u"rootc(4;1;-1)", u"rootc(0;1;0)",
          u"rootc(-2;1;0)", u"rootc(2.5;1;0)", u"rootc(2+i;1;0)", u"rootc(4;1;1+i)",
          u"rootc(2305843009213693952;1;0)"}) {
        const std::u16string text = formula;
        EXPECT_EQ(Evaluate(text), Failure(FormulaErrorOperationFailed, text.size(), 1))
            << Printable(text);
    }
    EXPECT_EQ(Evaluate(u"rootc(2305843009213693951;1;0)"), Value("1", "0"));
    EXPECT_EQ(Evaluate(u"rootc(1;2-3i;0)"), Value("2", "-3"));
}

TEST(Functions, TakeRootsOfAxesExactly) {
    FormulaScope scope(20, NumberTypeComplex);
    EXPECT_EQ(Evaluate(u"sqrtc(-4;0)"), Value("-0", "2"));
    EXPECT_EQ(Evaluate(u"sqrtc(-4;1)"), Value("0", "-2"));
    EXPECT_EQ(Evaluate(u"sqrtc(4;0)"), Value("2", "0"));
    EXPECT_EQ(Evaluate(u"cbrtc(8;0)"), Value("2", "0"));
    EXPECT_EQ(Evaluate(u"cbrtc(-27i;1)"), Value("0", "3"));
    EXPECT_EQ(Evaluate(u"sqrtc(0;1)"), Value("0", "0"));
}

TEST(Functions, OfArgumentsByPartsKeepSigns) {
    FormulaScope scope(20, NumberTypeComplex);
    EXPECT_EQ(Evaluate(u"round(2.5-0.04i)"), Value("3", "-0"));
    EXPECT_EQ(Evaluate(u"trunc(-0.5+1.5i)"), Value("-0", "1"));
    EXPECT_EQ(Evaluate(u"frac(-2+2.25i)"), Value("-0", "0.25"));
    EXPECT_EQ(Evaluate(u"abs(3+4i)"), Value("5", "0"));
    EXPECT_EQ(Evaluate(u"abs(-i)"), Value("1", "0"));
    EXPECT_EQ(Evaluate(u"arg(0)"), Value("0", "0"));
}

TEST(Functions, GiveTheAnglesOfTheAxesAndDiagonals) {
    struct Case {
        const char16_t* z;
        const char* degrees;
        const char* gon;
    };
    for (const Case& c : {Case{u"1", "0", "0"}, Case{u"i", "90", "100"}, Case{u"-1", "180", "200"},
                          Case{u"-i", "-90", "-100"}, Case{u"-3-3i", "-135", "-150"}}) {
        const std::u16string z = c.z;
        EXPECT_EQ(CalculatorValue(u"argd(" + z + u")", NumberTypeComplex),
                  KnownText(c.degrees) + ", 0");
        EXPECT_EQ(CalculatorValue(u"argg(" + z + u")", NumberTypeComplex),
                  KnownText(c.gon) + ", 0");
        EXPECT_EQ(CalculatorValue(u"arg(" + z + u")*180/pi", NumberTypeComplex),
                  KnownText(c.degrees) + ", 0");
    }
}

// Each of them polls the stop byte, at guard digits that have to be taken back.
TEST(Functions, ThatRunLongCanBeStopped) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        for (const int64_t p : {20, 38, 100}) {
            FormulaScope scope(p, type);
            for (const char16_t* formula :
                 {u"2+fact(30)", u"fact(100000)", u"ncr(30;4)", u"npr(30;4)", u"gcd(84;60)",
                  u"lcm(84;60)", u"84 mod 60+1", u"cosd(90)"}) {
                EXPECT_EQ(EvaluateTokenByToken(formula), Failure(FormulaErrorAborted, 1, 0))
                    << Printable(formula);
            }
        }
    }
}

// The longest layout of the calculator, for those that take the most memory.
TEST(Functions, HaveValuesAtTheHighestPrecision) {
    FormulaScope scope(10'002, NumberTypeComplex);
    for (const char16_t* formula :
         {u"tand(7)", u"argg(2-7i)", u"7^0.7", u"logx(5;7)", u"rootc(5;2-7i;2)", u"(2-7i)^(-5)"}) {
        EXPECT_EQ(Evaluate(formula).error, uint32_t{FormulaErrorNone}) << Printable(formula);
    }
}

TEST(Functions, NeedATypeThatHasPi) {
    for (const NumberType type : {NumberTypeUint, NumberTypeRational}) {
        FormulaScope scope(20, type);
        EXPECT_EQ(Evaluate(u"(pi"), Failure(FormulaErrorOperationFailed, 2, 2));
    }
}

TEST(Functions, OfIntegersKeepTheirArgumentsInOrder) {
    FormulaScope scope(20);
    EXPECT_EQ(Evaluate(u"root(3;-8)"), Value("-2"));
    EXPECT_EQ(Evaluate(u"logx(2;1024)"), Value("10"));
    EXPECT_EQ(Evaluate(u"ncr(5;2)"), Value("10"));
    EXPECT_EQ(Evaluate(u"npr(5;2)"), Value("20"));
    EXPECT_EQ(Evaluate(u"ncr(2;5)"), Value("0"));
}

}  // namespace
}  // namespace tallymere

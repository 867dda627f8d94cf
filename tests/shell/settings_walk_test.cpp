#include "shell/settings_walk.h"

#include <algorithm>

#include "shell/settings_bytes.h"
#include "shell/settings_testing.h"
#include "support/random_source.h"

namespace tallymere::testing_support {
namespace {

// The full file without one line, or with another in its place.
std::u16string Without(size_t line) {
    std::vector<std::u16string> lines = FullFileLines;
    lines.erase(lines.begin() + static_cast<ptrdiff_t>(line));
    return Joined(lines);
}
std::u16string With(size_t line, const std::u16string& text) {
    std::vector<std::u16string> lines = FullFileLines;
    lines[line] = text;
    return Joined(lines);
}

Settings FullSettings() {
    Settings record;
    record.language = LanguageGerman;
    record.decimalSeparator = DecimalComma;
    record.thousandsSeparator = ThousandsNarrowSpace;
    record.groupCalculator = true;
    record.groupEquations = true;
    record.groupPrimes = true;
    record.angleType = AngleGon;
    record.numberType = NumberTypeUint;
    record.decimalPrecision = 1234;
    record.outputNumberBase = 16;
    record.useLowerCaseHex = true;
    record.variableCount = 3;
    record.variables[0] = {u"x", u"1.5"};
    record.variables[1] = {u"y", u"2*x"};
    record.variables[2] = {u"\u03B1", u""};
    record.showWelcomeHint = false;
    return record;
}

// Copies the setting that a line of FullFileLines is about; not the variables.
void CopySetting(Settings& to, const Settings& from, size_t line) {
    switch (line) {
        case LanguageLine:
            to.language = from.language;
            break;
        case DecimalLine:
            to.decimalSeparator = from.decimalSeparator;
            break;
        case ThousandsLine:
            to.thousandsSeparator = from.thousandsSeparator;
            break;
        case GroupCalculatorLine:
            to.groupCalculator = from.groupCalculator;
            break;
        case GroupEquationsLine:
            to.groupEquations = from.groupEquations;
            break;
        case GroupPrimesLine:
            to.groupPrimes = from.groupPrimes;
            break;
        case AngleLine:
            to.angleType = from.angleType;
            break;
        case NumberTypeLine:
            to.numberType = from.numberType;
            break;
        case PrecisionLine:
            to.decimalPrecision = from.decimalPrecision;
            break;
        case BaseLine:
            to.outputNumberBase = from.outputNumberBase;
            break;
        case LowerCaseLine:
            to.useLowerCaseHex = from.useLowerCaseHex;
            break;
        case WelcomeLine:
            to.showWelcomeHint = from.showWelcomeHint;
            break;
    }
}

bool IsVariableLine(size_t line) {
    return line >= FirstVariableLine && line <= ThirdVariableLine;
}

// Takes what a line is about out of settings that have the first variables of the full ones.
void ResetSetting(Settings& record, size_t line) {
    CopySetting(record, Settings(), line);
    if (IsVariableLine(line)) {
        const size_t index = line - FirstVariableLine;
        std::copy(record.variables + index + 1, record.variables + record.variableCount,
                  record.variables + index);
        record.variableCount--;
    }
}

// The full settings without that of a line of FullFileLines.
Settings FullExcept(size_t line) {
    Settings record = FullSettings();
    ResetSetting(record, line);
    return record;
}

// The full settings without those of a line and all behind it.
Settings FullUpTo(size_t line) {
    Settings record = FullSettings();
    for (size_t i = FullFileLines.size(); i-- > line;) {
        ResetSetting(record, i);
    }
    return record;
}

void ExpectRead(std::u16string_view text, const Settings& expected) {
    const ReadText read(text);
    EXPECT_TRUE(SameSettings(read.record, expected))
        << testing::PrintToString(std::u16string(text)) << "\nwas read as\n"
        << testing::PrintToString(WrittenText(read.record)) << "\nfor\n"
        << testing::PrintToString(WrittenText(expected));
}

// The variables of the full file with other variable lines.
Texts Variables(const std::u16string& lines) {
    const std::u16string file = Joined(FullFileLines);
    const size_t begin = file.find(u"variable00");
    const size_t end = file.find(u"[hints]");
    const ReadText read(file.substr(0, begin) + lines + file.substr(end));
    return VariablesOf(read.record);
}

TEST(SettingsText, TheDefaultsAreWrittenByteForByte) {
    EXPECT_EQ(WrittenText(Settings()),
              u"[options]\r\n"
              u"language = (automatic)\r\n"
              u"decimal_separator = (automatic)\r\n"
              u"thousands_separator = (automatic)\r\n"
              u"thousands_sep_sci_calc = 0\r\n"
              u"thousands_sep_equations = 0\r\n"
              u"thousands_sep_prime_nums = 0\r\n"
              u"[scientific_calculator]\r\n"
              u"angle_type = rad\r\n"
              u"number_type = real\r\n"
              u"decimal_precision = 0\r\n"
              u"output_number_base = 10\r\n"
              u"use_lower_case_hex = 0\r\n"
              u"[hints]\r\n"
              u"show_welcome_hint = 1\r\n");
}

TEST(SettingsText, AFullFileIsWrittenByteForByteAndReadBack) {
    EXPECT_EQ(WrittenText(FullSettings()), Joined(FullFileLines));
    ExpectRead(Joined(FullFileLines), FullSettings());
}

TEST(SettingsText, AHundredVariablesAreNumberedWithTwoDigits) {
    Settings record;
    record.variableCount = 100;
    std::u16string lines;
    std::vector<std::u16string> names;
    for (int i = 0; i < 100; i++) {
        names.push_back(u"n" + std::u16string(1, static_cast<char16_t>(u'A' + i / 4)));
    }
    for (size_t i = 0; i < 100; i++) {
        record.variables[i] = {names[i].c_str(), u"1"};
        const char16_t digits[] = {static_cast<char16_t>(u'0' + i / 10),
                                   static_cast<char16_t>(u'0' + i % 10), 0};
        lines += std::u16string(u"variable") + digits + u" = " + names[i] + u";1\r\n";
    }
    EXPECT_NE(WrittenText(record).find(u"\nuse_lower_case_hex = 0\r\n" + lines + u"[hints]\r\n"),
              std::u16string::npos);
    EXPECT_TRUE(SameSettings(ReadText(WrittenText(record)).record, record));
}

TEST(SettingsText, ASinkThatIsTooSmallKeepsTheBeginningAndTheLength) {
    const std::u16string whole = Joined(FullFileLines);
    std::vector<char16_t> text(10, u'#');
    TextSink sink = {0, 10, text.data()};
    WriteSettings(sink, FullSettings());
    EXPECT_EQ(sink.count, static_cast<int64_t>(whole.size()));
    EXPECT_EQ(std::u16string(text.begin(), text.end()), whole.substr(0, 10));
}

TEST(SettingsText, WritingDoesNotMakeTheSettingsClean) {
    Settings record;
    record.settingsDirty = true;
    WrittenText(record);
    EXPECT_TRUE(record.settingsDirty);
}

TEST(SettingsText, LineEndsWithinVariablesBecomeBlanks) {
    Settings record;
    record.variableCount = 1;
    record.variables[0] = {u"a\nb", u"1+\r\n2"};
    record.showWelcomeHint = false;
    const std::u16string text = WrittenText(record);
    EXPECT_NE(text.find(u"\nvariable00 = a b;1+  2\r\n[hints]"), std::u16string::npos);
    EXPECT_FALSE(ReadText(text).record.showWelcomeHint);
}

TEST(SettingsText, AnEmptyTextGivesTheDefaults) {
    ExpectRead(u"", Settings());
}

TEST(SettingsText, ReadingReplacesWhatWasThere) {
    Settings record = FullSettings();
    record.settingsDirty = true;
    char16_t empty[] = u"";
    ReadSettings(record, empty);
    EXPECT_TRUE(SameSettings(record, Settings()));
}

TEST(SettingsText, EveryMissingLineCostsNoMoreThanItsOwnSetting) {
    for (size_t line = 0; line < FullFileLines.size(); line++) {
        ExpectRead(Without(line), FullExcept(line));
    }
}

TEST(SettingsText, AFileMayEndAnywhere) {
    const std::u16string whole = Joined(FullFileLines);
    size_t start = 0;
    for (size_t line = 0; line < FullFileLines.size(); line++) {
        // Before a line, with its end or without that of the line before.
        ExpectRead(whole.substr(0, start), FullUpTo(line));
        if (line > 0) {
            ExpectRead(whole.substr(0, start - 1), FullUpTo(line));
            ExpectRead(whole.substr(0, start - 2), FullUpTo(line));
        }
        start += FullFileLines[line].size() + 2;
    }
    for (size_t length = 0; length <= whole.size(); length++) {
        const ReadText read(whole.substr(0, length));
        EXPECT_TRUE(SameSettings(ReadText(WrittenText(read.record)).record, read.record));
    }
}

TEST(SettingsText, ALineOutOfPlaceHidesTheKeysUpToItsOwn) {
    // Each line at the very front, and missing where it was.
    for (size_t line = 1; line < FullFileLines.size(); line++) {
        std::vector<std::u16string> lines = FullFileLines;
        std::rotate(lines.begin(), lines.begin() + static_cast<ptrdiff_t>(line),
                    lines.begin() + static_cast<ptrdiff_t>(line) + 1);
        // Behind the line stands [options], at which all other keys fail.
        Settings expected;
        const Settings full = FullSettings();
        CopySetting(expected, full, line);
        if (IsVariableLine(line)) {
            expected.variableCount = 1;
            expected.variables[0] = full.variables[line - FirstVariableLine];
        }
        ExpectRead(Joined(lines), expected);
    }
}

TEST(SettingsText, SwappedSeparatorsCostTheFirstAndAllBehindTheSecond) {
    std::vector<std::u16string> lines = FullFileLines;
    std::swap(lines[DecimalLine], lines[ThousandsLine]);
    Settings expected;
    expected.language = LanguageGerman;
    expected.thousandsSeparator = ThousandsNarrowSpace;
    ExpectRead(Joined(lines), expected);
}

TEST(SettingsText, TheWalkMeetsTheFileAgainAtTheKeyOfTheLineOutOfPlace) {
    // precision stands where the separators should: what lies between is lost, the rest is not.
    std::vector<std::u16string> lines = FullFileLines;
    lines.erase(lines.begin() + DecimalLine, lines.begin() + PrecisionLine);
    Settings expected;
    expected.language = LanguageGerman;
    expected.decimalPrecision = 1234;
    expected.outputNumberBase = 16;
    expected.useLowerCaseHex = true;
    expected.variableCount = 3;
    std::copy_n(FullSettings().variables, 3, expected.variables);
    expected.showWelcomeHint = false;
    ExpectRead(Joined(lines), expected);
}

TEST(SettingsText, AnUnknownLineStopsEverythingBehindIt) {
    for (const std::u16string& unknown :
         {std::u16string(u"colour = red"), std::u16string(u"; comment"), std::u16string(u""),
          std::u16string(u"[colours]"), std::u16string(u"\t"), std::u16string(u"  x")}) {
        for (size_t line = 0; line <= FullFileLines.size(); line++) {
            std::vector<std::u16string> lines = FullFileLines;
            lines.insert(lines.begin() + static_cast<ptrdiff_t>(line), unknown);
            ExpectRead(Joined(lines), FullUpTo(line));
        }
    }
}

TEST(SettingsText, ADuplicateLineStopsEverythingBehindIt) {
    std::vector<std::u16string> lines = FullFileLines;
    lines.insert(lines.begin() + AngleLine, lines[AngleLine]);
    ExpectRead(Joined(lines), FullUpTo(NumberTypeLine));
}

TEST(SettingsText, BlanksMayStandBeforeALineAndAroundItsEqualsSign) {
    std::vector<std::u16string> lines;
    for (const std::u16string& line : FullFileLines) {
        const size_t equals = line.find(u" = ");
        lines.push_back(equals == line.npos ? u"  " + line
                                            : u"   " + line.substr(0, equals) + u"   =    " +
                                                  line.substr(equals + 3));
    }
    ExpectRead(Joined(lines), FullSettings());
    for (std::u16string& line : lines) {
        std::erase(line, u' ');
    }
    ExpectRead(Joined(lines), FullSettings());
    EXPECT_EQ(ReadText(u"language=English").record.language, LanguageEnglish);
}

TEST(SettingsText, OnlyBlanksAreSkipped) {
    for (const std::u16string& line :
         {std::u16string(u"\tlanguage = German"), std::u16string(u"language\t= German"),
          std::u16string(u"language =\tGerman"), std::u16string(u"\u00A0language = German"),
          std::u16string(u"language\u00A0= German")}) {
        EXPECT_EQ(ReadText(line).record.language, LanguageAutomatic)
            << testing::PrintToString(line);
    }
}

TEST(SettingsText, BlanksBehindAValueBelongToIt) {
    ExpectRead(With(LanguageLine, u"language = German "), FullExcept(LanguageLine));
    ExpectRead(With(LowerCaseLine, u"use_lower_case_hex = 1 "), FullSettings());
    ExpectRead(With(GroupPrimesLine, u"thousands_sep_prime_nums = 1 "),
               FullExcept(GroupPrimesLine));
    EXPECT_EQ(Variables(u"variable00 = x;1 \r\n"), (Texts{{u"x", u"1 "}}));
}

TEST(SettingsText, AKeyMustBeThereWholeAndAlone) {
    for (const char16_t* line : {u"languag = German", u"languages = German", u"Language = German",
                                 u"language German", u"language", u"language : German",
                                 u"x language = German", u"= German", u"language2 = German"}) {
        Settings expected;
        ExpectRead(With(LanguageLine, line), expected);
    }
    // The rest of the line is the value, other equals signs too.
    EXPECT_EQ(ReadText(u"language == German").record.language, LanguageAutomatic);
    EXPECT_EQ(ReadText(u"language = = German").record.language, LanguageAutomatic);
}

TEST(SettingsText, AnEmptyValueGivesTheDefaultAndTheWalkGoesOn) {
    for (size_t line = 0; line < FullFileLines.size(); line++) {
        const size_t equals = FullFileLines[line].find(u'=');
        if (equals == std::u16string::npos) {
            continue;
        }
        ExpectRead(With(line, FullFileLines[line].substr(0, equals + 1)), FullExcept(line));
        ExpectRead(With(line, FullFileLines[line].substr(0, equals + 1) + u"   "),
                   FullExcept(line));
    }
}

TEST(SettingsText, ABadValueGivesTheDefaultAndTheWalkGoesOn) {
    for (const size_t line : {LanguageLine, DecimalLine, ThousandsLine, GroupCalculatorLine,
                              GroupEquationsLine, GroupPrimesLine, AngleLine, NumberTypeLine,
                              PrecisionLine, BaseLine, LowerCaseLine, WelcomeLine}) {
        const std::u16string& good = FullFileLines[line];
        ExpectRead(With(line, good.substr(0, good.find(u'=') + 1) + u" nonsense"),
                   FullExcept(line));
    }
}

TEST(SettingsText, LineFeedsAloneEndLinesToo) {
    ExpectRead(Joined(FullFileLines, u"\n"), FullSettings());
}

TEST(SettingsText, TheCharacterBehindACarriageReturnIsTakenForALineFeed) {
    // Of a file with carriage returns alone every second line loses its first character, and
    // section lines do not end.
    std::vector<std::u16string> lines(FullFileLines.begin() + LanguageLine,
                                      FullFileLines.begin() + CalculatorLine);
    Settings expected;
    expected.language = LanguageGerman;
    ExpectRead(Joined(lines, u"\r"), expected);
    // Whatever the character is.
    expected.decimalSeparator = DecimalComma;
    ExpectRead(u"language = German\r#decimal_separator = comma\r", expected);
    ExpectRead(u"language = German\r\rdecimal_separator = comma", expected);
    ExpectRead(u"language = German\r decimal_separator = comma", expected);
    ExpectRead(u"language = German\n decimal_separator = comma", expected);
    expected.decimalSeparator = DecimalAutomatic;
    ExpectRead(u"language = German\r\r\ndecimal_separator = comma", expected);
    ExpectRead(u"language = German\n\rdecimal_separator = comma", expected);
    ExpectRead(u"language = German\n\ndecimal_separator = comma", expected);
    ExpectRead(u"language = German\r", expected);
    ExpectRead(u"language = German\r\r", expected);
}

TEST(SettingsText, ASectionLineIsSkippedThroughTheNextLineFeed) {
    Settings expected;
    expected.language = LanguageGerman;
    ExpectRead(u"[options] what ever\rand so on\nlanguage = German", expected);
    ExpectRead(u"  [options]\nlanguage = German", expected);
    ExpectRead(u"[options]language = English\r\nlanguage = German", expected);
    ExpectRead(u"[options]\rlanguage = German", Settings());
    ExpectRead(u"[options]", Settings());
}

TEST(SettingsText, ASectionLineThatIsNotTheExpectedIsNotPassed) {
    for (const char16_t* section : {u"[ options]", u"[options ]", u"[Options]", u"[option]",
                                    u"[optionss]", u"[options", u"options]", u"[]", u"["}) {
        ExpectRead(std::u16string(section) + u"\r\nlanguage = German\r\n", Settings());
    }
}

TEST(SettingsText, ATextEndsAtItsFirstZero) {
    std::u16string text = Joined(FullFileLines);
    text[text.find(u"gon")] = 0;
    Settings expected = FullUpTo(AngleLine);
    ExpectRead(text, expected);
    // What stands behind it is as if it were not there, behind a carriage return too.
    expected = Settings();
    expected.language = LanguageGerman;
    for (const std::u16string& line :
         {std::u16string(u"language = German"), std::u16string(u"language = German\r"),
          std::u16string(u"language = German\r\n")}) {
        ExpectRead(line + u'\0' + u"decimal_separator = comma", expected);
    }
}

TEST(SettingsVariables, AreSplitAtTheFirstSemicolon) {
    EXPECT_EQ(Variables(u"variable00 = a;1;2\r\n"
                        u"variable01 = b\r\n"
                        u"variable02 = ;3\r\n"
                        u"variable03 = ;\r\n"
                        u"variable04 = c;\r\n"
                        u"variable05 = d ; 4\r\n"
                        u"variable06 = e=5;x=y\r\n"),
              (Texts{{u"a", u"1;2"},
                     {u"b", u""},
                     {u"", u"3"},
                     {u"", u""},
                     {u"c", u""},
                     {u"d ", u" 4"},
                     {u"e=5", u"x=y"}}));
}

TEST(SettingsVariables, TheDigitsOfTheKeyDoNotCount) {
    EXPECT_EQ(
        Variables(u"variable99 = a;1\r\n"
                  u"variable00 = b;2\r\n"
                  u"variable00 = b;2\r\n"
                  u"variable7 = c;3\r\n"
                  u"variable0x rest of the key = d;4\r\n"
                  u"variable123456=e;5\r\n"),
        (Texts{
            {u"a", u"1"}, {u"b", u"2"}, {u"b", u"2"}, {u"c", u"3"}, {u"d", u"4"}, {u"e", u"5"}}));
}

TEST(SettingsVariables, AnEmptyValueIsDropped) {
    EXPECT_EQ(Variables(u"variable00 = \r\nvariable01 =\r\nvariable02=    \r\nvariable03 = a\r\n"),
              (Texts{{u"a", u""}}));
}

TEST(SettingsVariables, ALineWithoutEqualsSignIsSkipped) {
    EXPECT_EQ(Variables(u"variable00 a;1\r\nvariable01 = b;2\r\nvariable02\nvariable03 = c;3\n"),
              (Texts{{u"b", u"2"}, {u"c", u"3"}}));
    // Through the next line feed, beyond a carriage return.
    EXPECT_EQ(Variables(u"variable00\rvariable01 = b;2\r\nvariable03 = c;3\n"),
              (Texts{{u"c", u"3"}}));
    EXPECT_EQ(VariablesOf(ReadText(u"variable00").record), Texts());
    EXPECT_EQ(VariablesOf(ReadText(u"variable00\r").record), Texts());
    EXPECT_EQ(VariablesOf(ReadText(u"variable00 =").record), Texts());
    EXPECT_EQ(VariablesOf(ReadText(u"variable00 = a").record), (Texts{{u"a", u""}}));
}

TEST(SettingsVariables, AnyOtherLineEndsThem) {
    for (const char16_t* other : {u"variable = b;2", u"variablex0 = b;2", u"variable 0 = b;2",
                                  u"Variable00 = b;2", u"variabl", u"", u"\tvariable00 = b;2"}) {
        EXPECT_EQ(Variables(std::u16string(u"variable00 = a;1\r\n") + other +
                            u"\r\nvariable01 = c;3\r\n"),
                  (Texts{{u"a", u"1"}}));
    }
}

TEST(SettingsVariables, TheLineThatEndsThemIsReadByWhatFollows) {
    const ReadText read(Joined(FullFileLines));
    EXPECT_EQ(read.record.variableCount, 3);
    EXPECT_FALSE(read.record.showWelcomeHint);
    const ReadText direct(u"variable00 = a;1\r\n   show_welcome_hint = 0");
    EXPECT_EQ(direct.record.variableCount, 1);
    EXPECT_FALSE(direct.record.showWelcomeHint);
}

TEST(SettingsVariables, BeyondAHundredTheyAreSkipped) {
    std::u16string lines;
    Texts expected;
    for (int i = 0; i < 250; i++) {
        const std::u16string name(1, static_cast<char16_t>(0x4000 + i));
        lines += u"variable00 = " + name + u";" + name + name + u"\r\n";
        if (i < 100) {
            expected.emplace_back(name, name + name);
        }
    }
    EXPECT_EQ(Variables(lines), expected);
    const ReadText read(lines + u"[hints]\r\nshow_welcome_hint = 0\r\n");
    EXPECT_EQ(read.record.variableCount, 100);
    EXPECT_FALSE(read.record.showWelcomeHint);
}

TEST(SettingsVariables, TheHundredAndFirstIsSkipped) {
    std::u16string lines;
    for (int i = 0; i < 100; i++) {
        lines += u"variable00 = a;1\r\n";
    }
    EXPECT_EQ(Variables(lines).size(), 100u);
    EXPECT_EQ(Variables(lines + u"variable00 = last;1\r\n"), Variables(lines));
    // Skipped lines do not count.
    EXPECT_EQ(Variables(u"variable00 =\r\n" + lines), Variables(lines));
}

TEST(SettingsVariables, TextsMayBeAsLongAsTheyLike) {
    const std::u16string name(100'000, u'n');
    const std::u16string value(300'000, u'7');
    const std::u16string line = u"variable00 = " + name + u";" + value + u"\r\n";
    EXPECT_EQ(Variables(line), (Texts{{name, value}}));
    const ReadText read(line);
    EXPECT_TRUE(SameSettings(ReadText(WrittenText(read.record)).record, read.record));
}

TEST(SettingsVariables, PointIntoTheTextThatWasRead) {
    std::u16string text = u"variable00 = ab;c";
    Settings record;
    ReadSettings(record, text.data());
    EXPECT_EQ(record.variables[0].name, text.data() + 13);
    EXPECT_EQ(record.variables[0].value, text.data() + 16);
}

TEST(SettingsVariables, NamesThatTheFileGivesBack) {
    for (const char16_t* name : {u"", u"x", u"a b", u"=", u"[", u"\u03B1", u"x\t", u"\t", u"var"}) {
        EXPECT_TRUE(SettingsKeepName(name)) << testing::PrintToString(std::u16string(name));
    }
    for (const char16_t* name : {u";", u"a;b", u"a;", u" a", u"a ", u" ", u"a\rb", u"a\n"}) {
        EXPECT_FALSE(SettingsKeepName(name)) << testing::PrintToString(std::u16string(name));
    }
}

// No name is given back as another one, whatever its value.
TEST(SettingsVariables, NamesThatAreKeptComeBack) {
    RandomSource random;
    int kept = 0;
    for (int round = 0; round < 20'000; round++) {
        std::u16string name;
        for (uint64_t length = random.Word() % 5; length > 0; length--) {
            name += u"; =a\r\n\tb["[random.Word() % 9];
        }
        if (!SettingsKeepName(name)) {
            continue;
        }
        kept++;
        Settings record;
        record.variableCount = 1;
        record.variables[0] = {name.c_str(), u" 1;2 "};
        EXPECT_EQ(VariablesOf(ReadText(WrittenText(record)).record), (Texts{{name, u" 1;2 "}}));
    }
    EXPECT_GT(kept, 1'000);
}

std::vector<uint8_t> FileOf(std::u16string_view text) {
    const auto count = static_cast<int64_t>(text.size());
    std::vector<uint8_t> bytes(static_cast<size_t>(SettingsByteCount(count)));
    EncodeSettings(bytes.data(), text.data(), count);
    return bytes;
}

bool IsWhole(const std::vector<uint8_t>& bytes) {
    return IsWholeSettingsFile(bytes.data(), static_cast<int64_t>(bytes.size()));
}

TEST(WholeSettingsFile, IsWhatTheProgramWrites) {
    EXPECT_TRUE(IsWhole(FileOf(WrittenText(Settings{}))));
    EXPECT_TRUE(IsWhole(FileOf(Joined(FullFileLines))));
}

TEST(WholeSettingsFile, IsNoneWithoutItsEnd) {
    const std::vector<uint8_t> whole = FileOf(Joined(FullFileLines));
    for (size_t size = 0; size < whole.size(); size++) {
        EXPECT_FALSE(IsWhole({whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)}))
            << size;
    }
    std::vector<uint8_t> longer = whole;
    longer.push_back(0);
    EXPECT_FALSE(IsWhole(longer));
    longer.push_back(0);
    EXPECT_FALSE(IsWhole(longer));
}

// A power cut may leave zeros where a block of the disk was to be written.
TEST(WholeSettingsFile, IsNoneWithAGap) {
    const std::vector<uint8_t> whole = FileOf(Joined(FullFileLines));
    for (size_t from = 0; from + 2 <= whole.size(); from += 2) {
        std::vector<uint8_t> gap = whole;
        gap[from] = gap[from + 1] = 0;
        EXPECT_FALSE(IsWhole(gap)) << from;
        std::fill(gap.begin() + static_cast<ptrdiff_t>(from), gap.end(), uint8_t{0});
        EXPECT_FALSE(IsWhole(gap)) << from;
    }
}

TEST(WholeSettingsFile, IsNoneOfAnotherKind) {
    std::vector<std::u16string> lines = FullFileLines;
    lines[LanguageLine] = u"language = Klingon";
    EXPECT_FALSE(IsWhole(FileOf(Joined(lines))));
    EXPECT_FALSE(IsWhole(FileOf(Joined(FullFileLines, u"\n"))));
    EXPECT_FALSE(IsWhole(FileOf(u"")));
    EXPECT_FALSE(IsWhole(FileOf(u"a1;a2;b\r\n1;2;3\r\n")));
}

}  // namespace
}  // namespace tallymere::testing_support

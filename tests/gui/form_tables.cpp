// Prints the tables that windows are made from, in both languages, and the keypads of the
// calculator as one object of JSON: what tests of the windows compare the screen with.

#include <iostream>
#include <span>
#include <string>

#include "algebra_pages/equation_form.h"
#include "algebra_pages/polynomial_form.h"
#include "algebra_pages/system_form.h"
#include "calculator/calculator_form.h"
#include "calculator/calculator_sliders.h"
#include "calculator/keypad.h"
#include "calculator/variables_form.h"
#include "gui/json_text.h"
#include "prime_pages/prime_factors_form.h"
#include "prime_pages/prime_numbers_form.h"
#include "shell/about_form.h"
#include "shell/languages.h"
#include "shell/main_menu.h"
#include "shell/options_form.h"
#include "shell/program_facts.h"
#include "shell/ui_text.h"
#include "support/number_types.h"

namespace tallymere {

namespace {

std::string Json(const char16_t* text) {
    return JsonText(std::u16string_view(text));
}

const char* KindName(FormControlKind kind) {
    switch (kind) {
        case FormStatic:
            return "static";
        case FormPushButton:
            return "push button";
        case FormMultilineButton:
            return "multiline button";
        case FormOwnerDrawnButton:
            return "owner-drawn button";
        case FormCheckBox:
            return "check box";
        case FormRadioButton:
            return "radio button";
        case FormDropList:
            return "drop list";
        case FormGroupBox:
            return "group box";
        case FormTabControl:
            return "tab control";
        case FormTabPage:
            return "tab page";
        case FormFocusSink:
            return "focus sink";
        case FormField:
            return "field";
        case FormMultilineField:
            return "multiline field";
        case FormUnbrokenField:
            return "unbroken field";
        case FormGrid:
            return "grid";
        case FormList:
            return "list";
        case FormSlider:
            return "slider";
        case FormNumericUpDown:
            return "numeric up-down";
        case FormSplitter:
            return "splitter";
        case FormDigitCount:
            return "digit count";
        case FormNumberBase:
            return "number base";
        case FormNumberType:
            return "number type";
    }
    return "";
}

std::string FormJson(std::span<const FormControl> form) {
    JsonList controls = JsonArray();
    for (const FormControl& control : form) {
        JsonList place = JsonArray();
        for (const int32_t number :
             {control.place.x, control.place.y, control.place.width, control.place.height}) {
            place.Add(std::to_string(number));
        }
        JsonList object = JsonObject();
        object.Add("parent", control.parent);
        object.Add("kind", '"' + std::string(KindName(control.kind)) + '"');
        object.Add("place", place.Text());
        const bool hasText = control.text != nullptr || control.fixedText != nullptr;
        object.Add("text", hasText ? Json(FormText(control)) : "null");
        controls.Add(object.Text());
    }
    return controls.Text();
}

std::string SizeJson(LayoutSize size) {
    return '[' + std::to_string(size.width) + ", " + std::to_string(size.height) + ']';
}

std::string MenuJson() {
    JsonList items = JsonArray();
    for (const MenuItem& item : MainMenu) {
        JsonList object = JsonObject();
        object.Add("id", item.id);
        object.Add("caption", Json(uiText.*item.caption));
        items.Add(object.Text());
    }
    return items.Text();
}

std::string TextsJson() {
    JsonList texts = JsonObject();
#define ENTRY(name, ...) texts.Add(#name, Json(uiText.name));
#include "shell/ui_text_entries.inc"
    return texts.Text();
}

// What the container of the calculator shows with certain settings, on a system of today.
std::string KeypadJson(const KeypadStyle& style) {
    JsonList keys = JsonArray();
    for (int32_t index = 0; index < KeyCount; index++) {
        const KeyInfo key = KeypadEntry(index, style);
        JsonList object = JsonObject();
        object.Add("caption", Json(key.caption));
        object.Add("has action", key.action != ActionNone);
        keys.Add(object.Text());
    }
    JsonList shown = JsonArray();
    for (int32_t control = 0; control < ContainerControlCount; control++) {
        const bool isShown =
            IsShownForType(static_cast<ContainerControl>(control), style.numberType);
        shown.Add(isShown ? "true" : "false");
    }
    JsonList keypad = JsonObject();
    keypad.Add("type", PositionOfType(style.numberType) - FirstTypePosition);
    keypad.Add("angle", PositionOfAngle(style.angleType) - FirstAnglePosition);
    keypad.Add("lower_case", style.lowerCaseHex);
    keypad.Add("keys", keys.Text());
    keypad.Add("shown", shown.Text());
    return keypad.Text();
}

std::string KeypadsJson() {
    JsonList keypads = JsonArray();
    for (const NumberType type : testing_support::AllNumberTypes) {
        for (const AngleType angle : {AngleDegrees, AngleRadians, AngleGon}) {
            for (const bool lowerCase : {false, true}) {
                keypads.Add(KeypadJson({type, angle, lowerCase, 0x0A00}));
            }
        }
    }
    return keypads.Text();
}

// Where controls stand among those of the container, and the positions that its sliders begin with.
std::string ContainerJson() {
    JsonList places = JsonObject();
    const auto add = [&places](const char* name, int32_t number) { places.Add(name, number); };
    add("type slider", ContainerTypeSlider);
    add("first type label", ContainerTypeUint);
    add("last type label", ContainerTypeCplx);
    add("precision label", ContainerPrecisionLabel);
    add("precision", ContainerPrecision);
    add("angle slider", ContainerAngleSlider);
    add("first angle label", ContainerAngleDeg);
    add("last angle label", ContainerAngleGon);
    add("first key", ContainerFirstKey);
    add("last key", ContainerFirstKey + KeyCount - 1);
    add("bracket mark", ContainerBracketMark);
    add("digit count", ContainerDigitCount);
    add("number base", ContainerNumberBase);
    add("case key", ContainerCaseKey);
    add("first type position", FirstTypePosition);
    add("first angle position", FirstAnglePosition);
    return places.Text();
}

// The keys that are at the same place in all number types.
std::string KeysJson() {
    JsonList keys = JsonObject();
    const auto add = [&keys](const char* name, KeyAction action) {
        keys.Add(name, KeyOfAction(action, NumberTypeReal));
    };
    add("clear all", ActionClearAll);
    add("backspace", ActionBackspace);
    add("clear formula", ActionClearFormula);
    add("variables", ActionShowVariables);
    add("bracket formula", ActionBracketFormula);
    add("evaluate", ActionEvaluate);
    add("ans", ActionAns);
    add("switch notation", ActionSwitchNotation);
    return keys.Text();
}

// The rows of the controls that tests ask for.
std::string EquationRowsJson() {
    JsonList rows = JsonObject();
    const auto add = [&rows](const char* name, EquationControl row) {
        rows.Add(name, int32_t{row});
    };
    add("degree", EquationDegreeField);
    add("mode", EquationModeList);
    add("result type", EquationResultTypeList);
    add("precision", EquationPrecision);
    add("multiplicity", EquationMultiplicity);
    add("text", EquationText);
    add("grid", EquationGrid);
    add("output", EquationOutput);
    add("solve", EquationSolve);
    add("clear", EquationClear);
    add("close", EquationClose);
    return rows.Text();
}

std::string SystemRowsJson() {
    JsonList rows = JsonObject();
    const auto add = [&rows](const char* name, SystemControl row) { rows.Add(name, int32_t{row}); };
    add("count", SystemCount);
    add("type", SystemType);
    add("precision label", SystemPrecisionLabel);
    add("precision", SystemPrecision);
    add("hint", SystemHint);
    add("grid", SystemGrid);
    add("output", SystemOutput);
    add("solve", SystemSolve);
    add("clear", SystemClear);
    add("load", SystemLoad);
    add("save as", SystemSaveAs);
    add("close", SystemClose);
    return rows.Text();
}

std::string PolynomialRowsJson() {
    JsonList rows = JsonObject();
    const auto add = [&rows](const char* name, PolynomialControl row) {
        rows.Add(name, int32_t{row});
    };
    add("count", PolynomialCount);
    add("degree", PolynomialDegree);
    add("type", PolynomialType);
    add("precision label", PolynomialPrecisionLabel);
    add("precision", PolynomialPrecision);
    add("hint", PolynomialHint);
    add("grid", PolynomialGrid);
    add("output", PolynomialOutput);
    add("plus", PolynomialPlus);
    add("minus", PolynomialMinus);
    add("power", PolynomialPower);
    add("times", PolynomialTimes);
    add("divide", PolynomialDivide);
    add("result to 0", PolynomialResultTo0);
    add("result to 1", PolynomialResultTo1);
    add("clear 0", PolynomialClear0);
    add("clear 1", PolynomialClear1);
    add("clear all", PolynomialClearAll);
    add("close", PolynomialClose);
    return rows.Text();
}

std::string PrimeFactorsRowsJson() {
    JsonList rows = JsonObject();
    const auto add = [&rows](const char* name, PrimeFactorsControl row) {
        rows.Add(name, int32_t{row});
    };
    add("number", PrimeFactorsNumber);
    add("digits", PrimeFactorsDigits);
    add("base", PrimeFactorsBase);
    add("factors", PrimeFactorsFactors);
    add("divisors", PrimeFactorsDivisors);
    add("show count", PrimeFactorsShowCount);
    add("interval", PrimeFactorsInterval);
    add("output", PrimeFactorsOutput);
    add("start", PrimeFactorsStart);
    add("stop", PrimeFactorsStop);
    add("close", PrimeFactorsClose);
    return rows.Text();
}

std::string PrimeNumbersRowsJson() {
    JsonList rows = JsonObject();
    const auto add = [&rows](const char* name, PrimeNumbersControl row) {
        rows.Add(name, int32_t{row});
    };
    add("number", PrimeNumbersNumber);
    add("digits", PrimeNumbersDigits);
    add("base", PrimeNumbersBase);
    add("mode group", PrimeNumbersModeGroup);
    add("interval mode", PrimeNumbersIntervalMode);
    add("next prime", PrimeNumbersNextPrime);
    add("test", PrimeNumbersTest);
    add("interval", PrimeNumbersInterval);
    add("method group", PrimeNumbersMethodGroup);
    add("exact", PrimeNumbersExact);
    add("probabilistic", PrimeNumbersProbabilistic);
    add("output", PrimeNumbersOutput);
    add("start", PrimeNumbersStart);
    add("stop", PrimeNumbersStop);
    add("close", PrimeNumbersClose);
    return rows.Text();
}

std::string LanguageJson(Language language) {
    InstallLanguage(language);
    JsonList tables = JsonObject();
    tables.Add("about_size", SizeJson(AboutSize));
    tables.Add("about", FormJson(AboutForm));
    tables.Add("options_size", SizeJson(OptionsSize));
    tables.Add("options", FormJson(OptionsForm));
    tables.Add("calculator_size", SizeJson(CalculatorSize));
    tables.Add("calculator", FormJson(CalculatorForm));
    tables.Add("calculator_container", FormJson(ContainerForm));
    tables.Add("variables_size", SizeJson(VariablesSize));
    tables.Add("variables", FormJson(VariablesForm));
    tables.Add("equation_size", SizeJson(EquationPageSize));
    tables.Add("equation", FormJson(EquationForm));
    tables.Add("system_size", SizeJson(SystemPageSize));
    tables.Add("system", FormJson(SystemForm));
    tables.Add("polynomial_size", SizeJson(PolynomialPageSize));
    tables.Add("polynomial", FormJson(PolynomialForm));
    tables.Add("prime_factors_size", SizeJson(PrimeFactorsSize));
    tables.Add("prime_factors", FormJson(PrimeFactorsForm));
    tables.Add("prime_numbers_size", SizeJson(PrimeNumbersSize));
    tables.Add("prime_numbers", FormJson(PrimeNumbersForm));
    tables.Add("menu", MenuJson());
    tables.Add("texts", TextsJson());
    return tables.Text();
}

}  // namespace

}  // namespace tallymere

int main() {
    using namespace tallymere;
    JsonList languages = JsonObject();
    for (const LanguageRow& row : Languages) {
        languages.Add(row.code, LanguageJson(row.language));
    }
    languages.Add("build_time", JsonText(std::u16string_view(ProgramBuildTime)));
    languages.Add("keypads", KeypadsJson());
    languages.Add("container", ContainerJson());
    languages.Add("keys", KeysJson());
    languages.Add("equation_rows", EquationRowsJson());
    languages.Add("system_rows", SystemRowsJson());
    languages.Add("polynomial_rows", PolynomialRowsJson());
    languages.Add("prime_factors_rows", PrimeFactorsRowsJson());
    languages.Add("prime_numbers_rows", PrimeNumbersRowsJson());
    std::cout << languages.Text() << std::endl;
}

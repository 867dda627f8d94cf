#include "console/options.h"

#include <algorithm>
#include <iterator>

#include "calculator/variable_table.h"
#include "console/utf8.h"
#include "layout/number_base_layout.h"

namespace tallymere {

namespace {

constexpr Choice Types[] = {{"real", NumberTypeReal},
                            {"cplx", NumberTypeComplex},
                            {"uint", NumberTypeUint},
                            {"rat", NumberTypeRational}};
constexpr Choice Forms[] = {{"auto", ResultAutomatic},
                            {"fixed", ResultFixed},
                            {"scientific", ResultScientific},
                            {"mixed", ResultMixed}};

// What a value may be that is none of some choices.
std::string DigitsForm() {
    return "1 to " + std::to_string(MaxDigits);
}
std::string VariableForm() {
    return "NAME=TEXT, the name 1 to " + std::to_string(VariableNameCharacters) +
           " letters, _ and digits, no digit first, and not e, i, \u03C0, pi or ans";
}

std::string SetDigits(ConsoleOptions& options, std::string_view value) {
    int64_t digits = 0;
    for (const char c : value) {
        if (c < '0' || c > '9' || digits > MaxDigits) {
            return std::string(NotAllowedValue);
        }
        digits = digits * 10 + (c - '0');
    }
    if (digits < 1 || digits > MaxDigits) {
        return std::string(NotAllowedValue);
    }
    options.digits = digits;
    return {};
}

std::string SetVariable(ConsoleOptions& options, std::string_view value) {
    const DecodedText decoded = DecodeUtf8(value);
    if (decoded.firstInvalid != DecodedText::NoPosition) {
        return "is not valid UTF-8";
    }
    const size_t equals = decoded.text.find(u'=');
    if (equals == decoded.text.npos) {
        return "has no =";
    }
    ConsoleVariable variable = {decoded.text.substr(0, equals), decoded.text.substr(equals + 1)};
    if (variable.name.empty() ||
        variable.name.size() > static_cast<size_t>(VariableNameCharacters) ||
        !IsValidVariableName(variable.name.c_str())) {
        return "has no valid name";
    }
    if (variable.text.size() > static_cast<size_t>(VariableValueCharacters)) {
        return "has more than " + std::to_string(VariableValueCharacters) + " characters";
    }
    const auto same =
        std::find_if(options.variables.begin(), options.variables.end(),
                     [&](const ConsoleVariable& v) { return v.name == variable.name; });
    if (same != options.variables.end()) {
        *same = std::move(variable);
    } else if (options.variables.size() == static_cast<size_t>(MaxVariables)) {
        return "is one variable too many, at most " + std::to_string(MaxVariables) +
               " are possible";
    } else {
        options.variables.push_back(std::move(variable));
    }
    return {};
}

std::vector<Option> FormulaOptionList(ConsoleOptions& options) {
    std::vector<Option> list = {
        ChoiceOption("--type", {std::begin(Types), std::end(Types)}, options.type),
        {.name = "--digits",
         .allowed = DigitsForm(),
         .set = [&](std::string_view value, int32_t) { return SetDigits(options, value); }},
        BaseOption(NumberBaseOffersAll, options.base),
        FlagOption("--lower-hex", options.lowerHex, true),
        ChoiceOption("--form", {std::begin(Forms), std::end(Forms)}, options.form),
    };
    for (Option& option : TextOptionList(options.text)) {
        list.push_back(std::move(option));
    }
    list.push_back(
        {.name = "--var", .allowed = VariableForm(), .set = [&](std::string_view value, int32_t) {
             return SetVariable(options, value);
         }});
    list.push_back(LastOption(FlagOption("--help", options.action, PrintHelp)));
    list.push_back(LastOption(FlagOption("--version", options.action, PrintVersion)));
    return list;
}

}  // namespace

ParsedArguments ParseArguments(const std::vector<std::string>& arguments) {
    ParsedArguments parsed;
    OptionReading reading = ReadOptions(
        FormulaOptionList(parsed.options), arguments,
        {OptionPlaces::BeforeEnd, ", and -- before formulas that begin like an option"});
    parsed.options.formulas = std::move(reading.operands);
    parsed.error = std::move(reading.error);
    if (parsed.error.empty() && parsed.options.action == EvaluateFormulas) {
        parsed.error = CheckSeparators(parsed.options.text);
    }
    return parsed;
}

}  // namespace tallymere

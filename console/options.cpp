#include "console/options.h"

#include <algorithm>

#include "calculator/variable_table.h"
#include "console/option_usage.h"
#include "console/utf8.h"
#include "layout/number_base_layout.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables and limits of the program say.
constexpr std::string_view Usage =
    R"({--type}number type ({type}); the first result that is
                                no fraction turns rat into real
  --digits N                    precision, 1 to {highest digits} ({digits})
{--base}output base for uint ({base})
  --lower-hex                   small letters in bases above 10
{--form}notation of results ({form}); mixed is for rat
{text options}  --var NAME=TEXT               a variable, itself a formula; repeatable
  --                            all that follows are formulas
  --help, --version             print this text, or the version
)";

std::vector<Choice> TypeChoices() {
    return {{"real", NumberTypeReal},
            {"cplx", NumberTypeComplex},
            {"uint", NumberTypeUint},
            {"rat", NumberTypeRational}};
}

std::vector<Choice> FormChoices() {
    return {{"auto", ResultAutomatic},
            {"fixed", ResultFixed},
            {"scientific", ResultScientific},
            {"mixed", ResultMixed}};
}

// What the value of --var may be.
std::string VariableForm() {
    return "NAME=TEXT, the name 1 to " + std::to_string(VariableNameCharacters) +
           " letters, _ and digits, no digit first, and not e, i, \u03C0, pi or ans";
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
        ChoiceOption("--type", TypeChoices(), options.type),
        NumberOption("--digits", 1, MaxDigits, options.digits),
        ChoiceOption("--base", BaseChoices(NumberBaseOffersAll), options.base),
        FlagOption("--lower-hex", options.lowerHex, true),
        ChoiceOption("--form", FormChoices(), options.form),
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

std::string FormulaOptionUsage() {
    const ConsoleOptions initial;
    return FillInUsage(Usage,
                       {{"{--type}", UsageOfChoices("--type", TypeChoices())},
                        {"{type}", SpellingOf(TypeChoices(), initial.type)},
                        {"{highest digits}", std::to_string(MaxDigits)},
                        {"{digits}", std::to_string(initial.digits)},
                        {"{--base}", UsageOfChoices("--base", BaseChoices(NumberBaseOffersAll))},
                        {"{base}", std::to_string(initial.base)},
                        {"{--form}", UsageOfChoices("--form", FormChoices())},
                        {"{form}", SpellingOf(FormChoices(), initial.form)},
                        {"{text options}", TextOptionUsage()}});
}

}  // namespace tallymere

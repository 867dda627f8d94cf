// Compares the functions with MPFR and MPC over many arguments and prints one line for each
// function and precision, fields separated by tabs: function, digits, inputs tried, largest error
// in ulps, log10 of that, largest error of a part in its own ulps, share of inputs not correctly
// rounded in percent, worst argument. tools/accuracy makes the document of it.
//
// usage: accuracy-report [--share PERCENT] [--function NAME] [--digits P]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "support/function_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Plan {
    int64_t digits;
    int64_t inputs;
};

constexpr Plan Plans[] = {{1, 20'000},  {2, 20'000},  {5, 20'000},   {16, 20'000}, {19, 20'000},
                          {20, 20'000}, {50, 20'000}, {100, 20'000}, {1000, 500},  {10'000, 20}};

constexpr int64_t DrawsForAnInput = 20;

struct Options {
    double share = 100;
    const char* function = nullptr;
    int64_t digits = 0;
};

// One function at one precision; its random arguments depend on nothing else.
void Report(const TestedFunction& function, const Plan& plan, const Options& options) {
    const PrecisionScope scope(plan.digits);
    RandomSource random;
    const int64_t inputs = std::max<int64_t>(
        1, static_cast<int64_t>(static_cast<double>(plan.inputs) * options.share / 100));
    double worst = -1;
    double worstLog = -std::numeric_limits<double>::infinity();
    double worstPart = 0;
    int64_t wrong = 0;
    std::string argument;
    int64_t tried = 0;
    // At few digits hardly an argument may lie in a small domain.
    for (int64_t drawn = 0; tried < inputs && drawn < DrawsForAnInput * inputs; drawn++) {
        const FunctionArguments x = DrawArguments(function, random);
        const FunctionDeviation deviation = CompareFunction(function, x);
        if (!deviation.inDomain) {
            continue;
        }
        tried++;
        wrong += deviation.wrongRoundings > 0 ? 1 : 0;
        worstPart = std::max(worstPart, deviation.partUlps);
        if (deviation.ulps > worst || (deviation.ulps == worst && deviation.logUlps > worstLog)) {
            worst = deviation.ulps;
            worstLog = deviation.logUlps;
            argument = ArgumentsText(function, x);
        }
    }
    std::printf(
        "%s\t%d\t%d\t%.6g\t%.2f\t%.6g\t%.4f\t%s\n", function.name.c_str(),
        static_cast<int>(plan.digits), static_cast<int>(tried), worst, worstLog, worstPart,
        100.0 * static_cast<double>(wrong) / static_cast<double>(std::max<int64_t>(1, tried)),
        argument.c_str());
    std::fflush(stdout);
}

int Run(const Options& options) {
    bool any = false;
    for (const TestedFunction& function : TestedFunctions()) {
        if (options.function != nullptr && function.name != options.function) {
            continue;
        }
        for (const Plan& plan : Plans) {
            if (options.digits == 0 || options.digits == plan.digits) {
                Report(function, plan, options);
                any = true;
            }
        }
    }
    if (!any) {
        std::fprintf(stderr, "no such function or precision\n");
    }
    return any ? 0 : 2;
}

}  // namespace
}  // namespace tallymere

int main(int argc, char** argv) {
    tallymere::Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--share") == 0) {
            options.share = std::atof(argv[i + 1]);
        } else if (std::strcmp(argv[i], "--function") == 0) {
            options.function = argv[i + 1];
        } else if (std::strcmp(argv[i], "--digits") == 0) {
            options.digits = std::atoll(argv[i + 1]);
        }
    }
    return tallymere::Run(options);
}

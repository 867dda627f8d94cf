#include "reference/prime_run_twins.h"

#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_roots.h"
#include "exact/big_uint_text.h"
#include "numtheory/primality_tests.h"
#include "numtheory/small_primes.h"

namespace tallymere::reference {

namespace {

constexpr uint64_t LargestWord = ~uint64_t{0};

using Value = std::vector<uint64_t>;

Value Copy(const uint64_t* number) {
    return {number, number + numberContext.uintLimbs};
}

bool Failed() {
    return numberContext.calcError != CalcErrorNone;
}

struct Printer {
    uint32_t flags;
    std::u16string text;
    bool hasItem = false;

    void Number(const uint64_t* number) {
        std::u16string digits(static_cast<size_t>(BigUintTextLength(flags)) + 1, u'\0');
        digits.resize(static_cast<size_t>(
            BigUintToText(digits.data(), static_cast<int64_t>(digits.size()) - 1, number, flags)));
        text += digits;
    }
    void RangeHeader(const PrimeRequest& request) {
        text += u"Prime numbers from ";
        Number(request.number);
        Value end = Copy(request.number);
        BigUintSubOne(end.data(), end.data());
        BigUintAddSmall(end.data(), end.data(), request.count);
        if (!Failed()) {
            text += u" to ";
            Number(end.data());
            text += u":\r\n{ ";
        }
    }
    void Header(const PrimeRequest& request) {
        if (request.mode == NextPrimeMode) {
            text += u"Next prime number:\r\n";
        } else {
            RangeHeader(request);
        }
    }
    void PrimeItem(const uint64_t* prime) {
        if (hasItem) {
            text += u", ";
        }
        hasItem = true;
        Number(prime);
    }
    void LastLine(const PrimeRequest& request, int64_t primes) {
        if (request.mode != IntervalMode || Failed()) {
            return;
        }
        text += u" }\r\nNumber of prime numbers: ";
        for (const char digit : std::to_string(primes)) {
            text += static_cast<char16_t>(digit);
        }
        text += u"\r\n";
    }
    void TestResult(const PrimeRequest& request, bool isPrime) {
        if (Failed()) {
            return;
        }
        Number(request.number);
        text += isPrime ? u" is a prime number." : u" is not a prime number.";
        text += u"\r\n";
    }
};

// Divides c by each number of the wheel behind d, up to s. True when none of them divides it.
bool HasNoDivisor(const uint64_t* c, uint64_t s, uint64_t d, size_t index) {
    while (true) {
        const uint64_t gap = PrimeGapWheel[index];
        index = index == PrimeGapWheel.size() - 1 ? 7 : index + 1;
        d += gap;
        if (d < gap || d > s) {
            return true;
        }
        uint64_t remainder = 0;
        BigUintDivideSmall(nullptr, &remainder, c, d, 0);
        if (remainder == 0) {
            return false;
        }
    }
}

uint64_t RootOf(const uint64_t* c) {
    Value root = Copy(c);
    BigUintSquareRoot(root.data(), c);
    return root[0];
}

void TestExactly(const PrimeRequest& request, Printer& printer) {
    const uint64_t* n = request.number;
    const bool isBelowTwo = n[0] < 2 && n[1] == 0;
    printer.TestResult(request, !isBelowTwo && HasNoDivisor(n, RootOf(n), 1, 0));
}

void SearchExactly(const PrimeRequest& request, Printer& printer) {
    printer.Header(request);
    Value c = Copy(request.number);
    auto k = static_cast<int64_t>(request.count);
    int64_t primes = 0;
    bool printsTwo = false;
    if (BigUintEqualsSmall(c.data(), 1)) {
        c[0] = 3;
        printsTwo = k >= 2;
        k -= 2;
    } else if (BigUintEqualsSmall(c.data(), 2)) {
        printsTwo = true;
    }
    if (c[0] % 2 == 0) {
        c[0]++;
        k--;
    }
    if (printsTwo) {
        const uint64_t two[] = {2, 0};
        printer.PrimeItem(two);
        primes++;
        if (request.mode == NextPrimeMode) {
            return;
        }
    }
    uint64_t s = RootOf(c.data());
    Value b = Copy(c.data());
    if (s != LargestWord) {
        BigUintFromUnsigned(b.data(), s + 1);
        BigUintMul(b.data(), b.data(), b.data());
    }
    while (k >= 1 && !Failed()) {
        if (HasNoDivisor(c.data(), s, 2, 1)) {
            printer.PrimeItem(c.data());
            primes++;
            if (request.mode == NextPrimeMode) {
                return;
            }
        }
        k -= 2;
        if (k < 1) {
            break;
        }
        BigUintAddSmall(c.data(), c.data(), 2);
        if (s == LargestWord || BigUintCompare(c.data(), b.data()) < 0) {
            continue;
        }
        s++;
        if (s != LargestWord) {
            BigUintAddSmall(b.data(), b.data(), s);
            BigUintAddSmall(b.data(), b.data(), s + 1);
        }
    }
    printer.LastLine(request, primes);
}

void SearchProbably(const PrimeRequest& request, Printer& printer) {
    printer.Header(request);
    Value c = Copy(request.number);
    uint64_t k = request.count;
    int64_t primes = 0;
    while (k > 0 && !Failed()) {
        const int isComposite = IsCompositeNumber(c.data());
        if (Failed()) {
            break;
        }
        if (isComposite == 0) {
            printer.PrimeItem(c.data());
            if (request.mode == NextPrimeMode) {
                return;
            }
            primes++;
        }
        k--;
        if (k == 0) {
            break;
        }
        BigUintAddSmall(c.data(), c.data(), 1);
    }
    printer.LastLine(request, primes);
}

}  // namespace

TwinRun TwinPrimeRun(const PrimeRequest& request) {
    Printer printer{request.printFlags, {}};
    if (request.method == ExactMethod && request.mode == TestMode) {
        TestExactly(request, printer);
    } else if (request.method == ExactMethod) {
        SearchExactly(request, printer);
    } else if (request.mode == TestMode) {
        printer.TestResult(request, IsCompositeNumber(request.number) == 0);
    } else {
        SearchProbably(request, printer);
    }
    const bool failed = Failed();
    numberContext.calcError = CalcErrorNone;
    return {printer.text, failed ? UiErrorPrimeNumberOverflow : UiErrorNone};
}

}  // namespace tallymere::reference

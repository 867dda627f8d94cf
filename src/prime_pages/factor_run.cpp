#include "prime_pages/factor_run.h"

#include "core/contract.h"
#include "exact/big_uint.h"
#include "numtheory/factorize_number.h"
#include "prime_pages/run_progress.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere {

namespace {

struct FactorRun {
    const FactorRequest& request;
    PieceWriter writer;
};

void RaiseTooMany(FactorRun& run, const uint64_t* number) {
    SetUiError(UiErrorTooManyPrimeFactors, PieceNumberText(run.writer, number));
}

// A factor with its multiplicity, which is written by the same flags: in base 16 it is hexadecimal.
void SendFactor(FactorRun& run, const FactorList& factors, int64_t index) {
    AddPieceNumber(run.writer, factors.primes[index]);
    const uint64_t multiplicity[FactorLimbs] = {factors.multiplicities[index], 0};
    if (multiplicity[0] >= 2) {
        AddPieceText(run.writer, u"^");
        AddPieceNumber(run.writer, multiplicity);
    }
    if (index < factors.count - 1) {
        AddPieceText(run.writer, u" * ");
    }
    SendPiece(run.writer);
}

void SendFactorsLine(FactorRun& run, const uint64_t* number, const FactorList& factors) {
    AddPieceNumber(run.writer, number);
    AddPieceText(run.writer, u" = ");
    SendPiece(run.writer);
    if (factors.count == 0) {
        AddPieceText(run.writer, uiText.TextFactorsNumberNoPrimeFactors);
    }
    for (int64_t i = 0; i < factors.count; i++) {
        SendFactor(run, factors, i);
    }
    AddPieceText(run.writer, u"\r\n");
    SendPiece(run.writer);
}

void SendDivisorsLine(FactorRun& run, const uint64_t* number, const DivisorList& divisors) {
    AddPieceText(run.writer, uiText.TextFactorsD);
    AddPieceNumber(run.writer, number);
    AddPieceText(run.writer, u" = { ");
    SendPiece(run.writer);
    for (int64_t i = 0; i < divisors.count; i++) {
        // A line can be longer than what its reader takes in the time that a stop may last.
        if (RunShouldEnd()) {
            return;
        }
        AddPieceNumber(run.writer, divisors.divisors + FactorLimbs * i);
        AddPieceText(run.writer, i < divisors.count - 1 ? u", " : u"");
        SendPiece(run.writer);
    }
    AddPieceText(run.writer, u" }");
    if (run.request.showCount) {
        FormatIntoSink(run.writer.piece, u"  [%d]", {static_cast<int32_t>(divisors.count)});
    }
    AddPieceText(run.writer, u"\r\n");
    SendPiece(run.writer);
}

// Finds and sends the line of a number; an error or a stop ends it without one.
void RunNumber(FactorRun& run, const uint64_t* number) {
    FactorList factors;
    switch (FactorizeNumber(&factors, number)) {
        case FactorOutcome::Complete:
            break;
        case FactorOutcome::Stopped:
            SetUiError(UiErrorStopped);
            break;
        case FactorOutcome::WrongWidth:
            SetUiError(UiErrorInternal);
            break;
    }
    TakeCalcError(UiErrorPrimeFactorOverflow);
    if (RunShouldEnd()) {
        return;
    }
    if (factors.count < 0) {
        RaiseTooMany(run, number);
    } else if (run.request.showDivisors) {
        DivisorList divisors = {0, run.request.divisors};
        BuildDivisorList(&divisors, &factors);
        if (divisors.count < 0) {
            RaiseTooMany(run, number);
        } else {
            SendDivisorsLine(run, number, divisors);
        }
    } else {
        SendFactorsLine(run, number, factors);
    }
}

}  // namespace

NumberSetup FactorNumberSetup() {
    return {.type = NumberTypeUint, .width = UintWidthForLimbs(FactorLimbs)};
}

void FactorWorker(const FactorRequest& request, SendText send) {
    TALLYMERE_REQUIRE(request.interval >= 1 && request.interval <= MaxFactorInterval);
    TALLYMERE_REQUIRE((request.number[0] | request.number[1]) != 0);
    TALLYMERE_REQUIRE(!request.showDivisors || request.divisors != nullptr);
    BeginRunProgress(static_cast<uint64_t>(request.interval));
    ScratchStackScope scope;
    FactorRun run = {request, MakePieceWriter(scope, send, request.printFlags)};
    uint64_t number[FactorLimbs] = {request.number[0], request.number[1]};
    for (int32_t i = 0; i < request.interval; i++) {
        RunNumber(run, number);
        if (RunShouldEnd()) {
            break;
        }
        SetRunProgress(static_cast<uint64_t>(i) + 1);
        // The number rises behind the last one of the interval too. So an interval that ends with
        // 2^128 - 1 ends with an overflow, after its last line.
        BigUintAddSmall(number, number, 1);
    }
    TakeCalcError(UiErrorPrimeFactorOverflow);
    RaiseStop();
}

}  // namespace tallymere

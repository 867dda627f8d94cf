#include "prime_pages/prime_run.h"

#include "core/contract.h"
#include "exact/big_uint.h"
#include "numtheory/primality_tests.h"
#include "numtheory/prime_proof.h"
#include "numtheory/prime_search.h"
#include "numtheory/wide_integers.h"
#include "prime_pages/run_progress.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere {

namespace {

struct PrimeRun {
    const PrimeRequest& request;
    PieceWriter writer;
    int32_t printed;  // prime numbers
};

bool RunHasFailed() {
    return numberContext.calcError != CalcErrorNone || RunShouldEnd();
}

// The first number and the last, unless that one does not fit: then the first alone, and
// CalcErrorOverflow is noted.
void PrintRangeHeader(PrimeRun& run) {
    AddPieceText(run.writer, uiText.TextPrimesPrimeNumbersFrom);
    AddPieceNumber(run.writer, run.request.number);
    SendPiece(run.writer);
    ScratchStackScope scope;
    uint64_t* last = scope.Take(numberContext.uintLimbs);
    BigUintSubOne(last, run.request.number);
    BigUintAddSmall(last, last, run.request.count);
    if (numberContext.calcError != CalcErrorNone) {
        return;
    }
    AddPieceText(run.writer, uiText.TextPrimesTo);
    AddPieceNumber(run.writer, last);
    AddPieceText(run.writer, u":\r\n{ ");
    SendPiece(run.writer);
}

void PrintHeader(PrimeRun& run) {
    if (run.request.mode == NextPrimeMode) {
        AddPieceText(run.writer, uiText.TextPrimesNextPrimeNumber2);
        AddPieceText(run.writer, u"\r\n");
        SendPiece(run.writer);
    } else {
        PrintRangeHeader(run);
    }
}

void PrintPrimeItem(PrimeRun& run, const uint64_t* prime) {
    AddPieceText(run.writer, run.printed > 0 ? u", " : u"");
    AddPieceNumber(run.writer, prime);
    SendPiece(run.writer);
    run.printed++;
}

void PrintTestResult(PrimeRun& run, bool isPrime) {
    if (RunHasFailed()) {
        return;
    }
    AddPieceNumber(run.writer, run.request.number);
    AddPieceText(run.writer,
                 isPrime ? uiText.TextPrimesPrimeNumber : uiText.TextPrimesPrimeNumber2);
    AddPieceText(run.writer, u"\r\n");
    SendPiece(run.writer);
}

void PrintLastLine(PrimeRun& run) {
    FormatIntoSink(run.writer.piece, u" }\r\n%s %d\r\n",
                   {uiText.TextPrimesNumberPrimeNumbers, run.printed});
    SendPiece(run.writer);
}

bool TakePrime(void* context, const uint64_t* prime) {
    PrimeRun& run = *static_cast<PrimeRun*>(context);
    if (RunHasFailed()) {
        return false;
    }
    PrintPrimeItem(run, prime);
    return run.request.mode == IntervalMode;
}

void TellProgress(void*, uint64_t visited) {
    SetRunProgress(visited);
}

// The intervals and the next prime. What a search does not complete shows in the errors.
void RunSearch(PrimeRun& run, PrimeSearchFunction search) {
    BeginRunProgress(run.request.mode == IntervalMode ? run.request.count : 0);
    PrintHeader(run);
    search(run.request.number, run.request.count, {TakePrime, &run, TellProgress});
    if (run.request.mode == IntervalMode && !RunHasFailed()) {
        SetRunProgress(run.request.count);
        PrintLastLine(run);
    }
}

void RunExactMethod(PrimeRun& run) {
    if (run.request.mode == TestMode) {
        const Primality primality = ProvePrimality(WideFromLimbs(run.request.number));
        if (primality == Primality::Unknown) {
            SetUiError(UiErrorStopped);
        }
        PrintTestResult(run, primality == Primality::Prime);
    } else {
        RunSearch(run, SearchPrimesExactly);
    }
}

void RunProbabilisticMethod(PrimeRun& run) {
    if (run.request.mode == TestMode) {
        PrintTestResult(run, IsCompositeNumber(run.request.number) == 0);
    } else {
        RunSearch(run, SearchPrimesProbably);
    }
}

}  // namespace

NumberSetup PrimeNumberSetup(PrimeMethod method) {
    const int64_t limbs = method == ExactMethod ? WideLimbs : 65;
    return {.type = NumberTypeUint, .width = UintWidthForLimbs(limbs)};
}

void PrimeWorker(const PrimeRequest& request, SendText send) {
    TALLYMERE_REQUIRE(request.count >= 1 && request.count <= MaxPrimeInterval);
    TALLYMERE_REQUIRE(request.method == NoMethod || !BigUintIsZero(request.number));
    BeginRunProgress(0);
    ScratchStackScope scope;
    PrimeRun run = {request, MakePieceWriter(scope, send, request.printFlags), 0};
    switch (request.method) {
        case NoMethod:
            break;
        case ExactMethod:
            RunExactMethod(run);
            break;
        case ProbabilisticMethod:
            RunProbabilisticMethod(run);
            break;
    }
    TakeCalcError(UiErrorPrimeNumberOverflow);
    RaiseStop();
}

}  // namespace tallymere

#include "algebra_pages/result_store.h"

#include <algorithm>
#include <cstdlib>

#include "core/contract.h"

namespace tallymere {

namespace {

// Makes room for so many characters; what stood there is gone.
void MakeRoom(ResultText& kept, int64_t length) {
    if (length <= kept.capacity && kept.text != nullptr) {
        return;
    }
    std::free(kept.text);
    kept.capacity = length + ResultTextSpare;
    kept.text = static_cast<char16_t*>(
        std::malloc(static_cast<size_t>(kept.capacity + 1) * sizeof(char16_t)));
    if (kept.text == nullptr) {
        std::abort();
    }
}

}  // namespace

ResultStore::~ResultStore() {
    for (ResultText& kept : texts) {
        std::free(kept.text);
    }
}

void EmptyResultStore(ResultStore& store) {
    for (ResultText& kept : store.texts) {
        kept.length = 0;
    }
}

void KeepResultText(ResultStore& store, int32_t index, std::u16string_view text) {
    TALLYMERE_REQUIRE(index >= 0 && index <= MaxPolyDegree);
    ResultText& kept = store.texts[index];
    MakeRoom(kept, static_cast<int64_t>(text.size()));
    *std::copy(text.begin(), text.end(), kept.text) = 0;
    kept.length = static_cast<int64_t>(text.size());
}

const char16_t* KeptResultText(const ResultStore& store, int32_t index) {
    TALLYMERE_REQUIRE(index >= 0 && index <= MaxPolyDegree);
    return store.texts[index].length == 0 ? u"" : store.texts[index].text;
}

int32_t MaxDegreeForResult(const ResultStore& store, int32_t maxDegree) {
    int32_t highest = MaxPolyDegree;
    while (highest > maxDegree && store.texts[highest].length == 0) {
        highest--;
    }
    return std::max(highest, maxDegree);
}

}  // namespace tallymere

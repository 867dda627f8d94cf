#include "shell/page_text.h"

#include <algorithm>

namespace tallymere {

namespace {

// Whether a character and the next one belong together.
bool OpensPair(char16_t c) {
    return c == u'\r' || (c >= 0xD800 && c <= 0xDBFF);
}

}  // namespace

int64_t GatherPageText(PageTextBuffer& gathered, std::u16string_view text) {
    const auto room =
        static_cast<size_t>(PageTextRoom(gathered.shown, gathered.last) - gathered.length);
    size_t count = std::min(text.size(), room);
    if (count < text.size() && count > 0 && OpensPair(text[count - 1])) {
        count--;
    }
    *std::copy_n(text.begin(), count, gathered.text + gathered.length) = 0;
    gathered.length += static_cast<int64_t>(count);
    return static_cast<int64_t>(count);
}

void TakePageText(PageTextBuffer& taken, PageTextBuffer& gathered, int64_t shown,
                  PageTextCost last) {
    std::copy_n(gathered.text, gathered.length + 1, taken.text);
    taken.length = gathered.length;
    gathered.text[0] = 0;
    gathered.length = 0;
    gathered.shown = shown;
    gathered.last = last;
}

}  // namespace tallymere

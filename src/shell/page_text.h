// The text of a run on its way to the output of its page. The thread of the run writes one piece
// after the other; the page takes all that was gathered at a time, which is far faster than to show
// each piece. shell/windows/page_text has the two threads.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace tallymere {

/// At first there is room for so many characters. A control needs up to a tenth of a second to take
/// them, and the window answers in between.
inline constexpr int64_t PageTextFirstRoom = 32'768;

/// There is never less room, and never more.
inline constexpr int64_t PageTextLeastRoom = 8'192;
inline constexpr int64_t PageTextCapacity = 1'048'576;

/// The text that is taken at a time is at most this part of the one that is shown already, and at
/// least the other one.
inline constexpr int64_t PageTextShare = 100;
inline constexpr int64_t PageTextLeastShare = 500;

/// A text that took an output longer than this is followed by a shorter one.
inline constexpr double PageTextMilliseconds = 150;

/// What it took to show a text.
struct PageTextCost {
    int64_t characters = 0;   ///< 0 for no text so far
    double milliseconds = 0;  ///< 0 or more
};

/// The room for the next text of an output that shows so many characters already, at least 0. A
/// control may walk through all its lines for each text that it gets, as that of Wine does. With
/// texts of one length the time would grow with the square of the whole. With texts that are a
/// share of what is shown the walks take a time that grows with the whole, up to PageTextShare *
/// PageTextCapacity characters.
///
/// But a click waits until the control has taken a text. So there is only room for what the control
/// would have taken in PageTextMilliseconds the last time, down to the least share. With less of it
/// the control would walk most of the time.
constexpr int64_t PageTextRoom(int64_t shown, PageTextCost last) {
    const int64_t most = std::clamp(shown / PageTextShare, PageTextFirstRoom, PageTextCapacity);
    const int64_t least =
        std::clamp(shown / PageTextLeastShare, PageTextLeastRoom, PageTextCapacity);
    const double inTime = PageTextMilliseconds * static_cast<double>(last.characters);
    return inTime >= static_cast<double>(most) * last.milliseconds
               ? most
               : std::max(least, static_cast<int64_t>(inTime / last.milliseconds));
}

/// 0 <= length <= PageTextRoom(shown, last), and text[length] is 0. Zeros throughout at first, so
/// that the buffers of the program need no room in its file and no memory until a page writes into
/// them.
struct PageTextBuffer {
    int64_t length = 0;
    int64_t shown = 0;       ///< characters of the output at the last TakePageText
    PageTextCost last = {};  ///< what the text before that one has cost
    char16_t text[PageTextCapacity + 1] = {};
};

/// Takes as much of the beginning of a text as there is room for, and puts it behind what was
/// gathered before. What it takes does not end between the two characters of a line end or of a
/// surrogate pair. Returns how many characters it took: 0 only for an empty text or where something
/// was gathered before.
int64_t GatherPageText(PageTextBuffer& gathered, std::u16string_view text);

/// Moves all that was gathered, so that there is room again: as much as PageTextRoom says of an
/// output that shows `shown` characters, those that are taken now among them, and of what it took
/// to show the last text before these. `taken` is overwritten.
void TakePageText(PageTextBuffer& taken, PageTextBuffer& gathered, int64_t shown,
                  PageTextCost last);

}  // namespace tallymere

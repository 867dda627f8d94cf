#include "shell/text_sink.h"

#include <algorithm>

#include "core/text_writer.h"

namespace tallymere {

void SinkChar(TextSink& sink, char16_t c) {
    if (sink.count < sink.capacity) {
        sink.text[sink.count] = c;
    }
    ++sink.count;
}

void SinkText(TextSink& sink, const char16_t* text) {
    if (text == nullptr) {
        text = u"?";
    }
    for (; *text != 0; ++text) {
        SinkChar(sink, *text);
    }
}

void EndSinkText(const TextSink& sink) {
    const int64_t length = std::min(sink.count, sink.capacity);
    if (SinkOverflowed(sink) && length > 0) {
        sink.text[length - 1] = Ellipsis;
    }
    sink.text[length] = 0;
}

void CopyBounded(char16_t* buffer, int64_t capacity, const char16_t* text) {
    TextSink sink = {0, capacity, buffer};
    SinkText(sink, text);
    EndSinkText(sink);
}

}  // namespace tallymere

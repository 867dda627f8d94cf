#include "shell/text_format.h"

#include "layout/decimal_text.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

void SinkArgument(TextSink& sink, const FormatArgument& argument) {
    switch (argument.kind) {
        case FormatArgument::Text:
            SinkText(sink, argument.text);
            break;
        case FormatArgument::Char:
            SinkChar(sink, argument.character);
            break;
        case FormatArgument::Number:
            SinkText(sink, DecimalTextOf(argument.number).text);
            break;
    }
}

}  // namespace

void FormatIntoSink(TextSink& sink, const char16_t* format,
                    std::initializer_list<FormatArgument> arguments) {
    if (SinkOverflowed(sink)) {
        return;
    }
    const FormatArgument* next = arguments.begin();
    const auto takeArgument = [&](FormatArgument::Kind kind) {
        const bool present = next != arguments.end();
        if (present && next->kind == kind) {
            SinkArgument(sink, *next);
        } else {
            SinkChar(sink, u'?');
        }
        next += present ? 1 : 0;
    };
    for (; *format != 0; ++format) {
        if (*format != u'%') {
            SinkChar(sink, *format);
            continue;
        }
        ++format;
        switch (*format) {
            case u's':
                takeArgument(FormatArgument::Text);
                break;
            case u'c':
                takeArgument(FormatArgument::Char);
                break;
            case u'd':
                takeArgument(FormatArgument::Number);
                break;
            case u'%':
                SinkChar(sink, u'%');
                break;
            case 0:
                SinkChar(sink, u'?');
                return;
            default:
                SinkChar(sink, u'?');
        }
    }
}

void FormatBounded(char16_t* buffer, int64_t capacity, const char16_t* format,
                   std::initializer_list<FormatArgument> arguments) {
    TextSink sink{0, capacity, buffer};
    FormatIntoSink(sink, format, arguments);
    EndSinkText(sink);
    if (SinkOverflowed(sink)) {
        SetUiError(UiErrorTextOverflow);
    }
}

}  // namespace tallymere

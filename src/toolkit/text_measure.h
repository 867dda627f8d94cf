// Measures text in a font of a window.
#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Holds the device context of a window while it lives, with a font; null is the system's font.
struct TextMeasure {
    TextMeasure(HWND measured, HFONT font)
        : window(measured), dc(GetDC(measured)), fontBefore(nullptr) {
        if (font != nullptr) {
            fontBefore = SelectObject(dc, font);
        }
    }

    ~TextMeasure() {
        if (fontBefore != nullptr) {
            SelectObject(dc, fontBefore);
        }
        ReleaseDC(window, dc);
    }

    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;

    int32_t WidthOf(std::u16string_view line) const { return ExtentOf(line).cx; }

    /// The height of a line with high and with deep letters.
    int32_t LineHeight() const { return ExtentOf(u"Ky").cy; }

    int32_t FontHeight() const {
        TEXTMETRICW metrics = {};
        GetTextMetricsW(dc, &metrics);
        return metrics.tmHeight;
    }

    HWND window;
    HDC dc;
    HGDIOBJ fontBefore;

private:
    SIZE ExtentOf(std::u16string_view line) const {
        SIZE extent = {};
        GetTextExtentPoint32W(dc, ToWide(line.data()), static_cast<int>(line.size()), &extent);
        return extent;
    }
};

}  // namespace tallymere

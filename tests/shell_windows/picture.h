// Pictures that a test draws, to compare them with what the program draws.
#pragma once

#include <cstdint>

#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// A picture to draw on, all of it in one colour at first.
class Picture {
public:
    static constexpr COLORREF Paper = RGB(1, 2, 3);

    Picture(int32_t width, int32_t height, COLORREF paper = Paper)
        : width_(width), height_(height) {
        const HDC screen = GetDC(nullptr);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        SelectObject(dc, bitmap_);
        const HBRUSH brush = CreateSolidBrush(paper);
        const RECT all = {0, 0, width, height};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        SetBkMode(dc, OPAQUE);
        SetBkColor(dc, paper);
        paper_ = GetNearestColor(dc, paper);
    }
    ~Picture() {
        DeleteDC(dc);
        DeleteObject(bitmap_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// Draws an icon over the whole picture.
    void DrawIcon(HICON icon) {
        DrawIconEx(dc, 0, 0, icon, width_, height_, 0, nullptr, DI_NORMAL);
    }

    /// Whether anything was drawn in that part of it.
    bool HasInk(int32_t left, int32_t right) const {
        for (int32_t y = 0; y < height_; y++) {
            for (int32_t x = left; x < right; x++) {
                if (GetPixel(dc, x, y) != paper_) {
                    return true;
                }
            }
        }
        return false;
    }
    bool HasInk() const { return HasInk(0, width_); }

    /// Whether another picture of the same size shows the same.
    bool IsLike(const Picture& other) const {
        for (int32_t y = 0; y < height_; y++) {
            for (int32_t x = 0; x < width_; x++) {
                if (GetPixel(dc, x, y) != GetPixel(other.dc, x, y)) {
                    return false;
                }
            }
        }
        return true;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    int32_t width_;
    int32_t height_;
    HBITMAP bitmap_;
    COLORREF paper_;
};

}  // namespace tallymere::testing_support

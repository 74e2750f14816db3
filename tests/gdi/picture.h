// A memory device context with a black bitmap in it, for tests that draw and look.
#pragma once

#include <string>
#include <vector>

#include "gdi/screen.h"
#include "wingdi.h"

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);

class Picture
{
public:
    Picture(int width, int height)
        : dc(CreateCompatibleDC({})), bitmap(CreateCompatibleBitmap({}, width, height)),
          width_(width), height_(height), previous_(SelectObject(dc, bitmap))
    {}
    ~Picture()
    {
        SelectObject(dc, previous_);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    Picture(const Picture &) = delete;
    Picture &operator=(const Picture &) = delete;

    /// The smallest rectangle around the pixels of a colour.
    RECT bounds(COLORREF colour) const
    {
        RECT around{width_, height_, 0, 0};
        for (int y = 0; y < height_; y++) {
            for (int x = 0; x < width_; x++) {
                if (GetPixel(dc, x, y) == colour) {
                    around = {std::min(around.left, x), std::min(around.top, y),
                              std::max(around.right, x + 1), std::max(around.bottom, y + 1)};
                }
            }
        }
        return around;
    }
    int count(COLORREF colour) const
    {
        int pixels = 0;
        for (int y = 0; y < height_; y++) {
            for (int x = 0; x < width_; x++) {
                pixels += GetPixel(dc, x, y) == colour ? 1 : 0;
            }
        }
        return pixels;
    }
    /// The rows as text: '.' black, '#' white, 'r' red, 'b' blue, '?' anything else.
    std::vector<std::string> rows() const
    {
        std::vector<std::string> lines(static_cast<std::size_t>(height_));
        for (int y = 0; y < height_; y++) {
            for (int x = 0; x < width_; x++) {
                const COLORREF colour = GetPixel(dc, x, y);
                lines[static_cast<std::size_t>(y)] += colour == black   ? '.'
                                                      : colour == white ? '#'
                                                      : colour == red   ? 'r'
                                                      : colour == blue  ? 'b'
                                                                        : '?';
            }
        }
        return lines;
    }
    void fill(const RECT &rect, COLORREF colour) const
    {
        const HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc, &rect, brush);
        DeleteObject(brush);
    }

    const HDC dc;
    const HBITMAP bitmap;

private:
    int width_;
    int height_;
    HGDIOBJ previous_;
};

using Rows = std::vector<std::string>;

inline bool operator==(const RECT &a, const RECT &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

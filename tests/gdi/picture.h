// A memory device context with a black bitmap in it, for tests that draw and look.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "gdi/objects.h"
#include "support/pixel.h"
#include "wingdi.h"

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF gray = RGB(132, 130, 132); // as the display shows it

using Rows = std::vector<std::string>;

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
        visit([&](int x, int y, COLORREF found) {
            if (found == colour) {
                around = {std::min(around.left, x), std::min(around.top, y),
                          std::max(around.right, x + 1), std::max(around.bottom, y + 1)};
            }
        });
        return around;
    }
    int count(COLORREF colour) const
    {
        int pixels = 0;
        visit([&](int, int, COLORREF found) { pixels += found == colour ? 1 : 0; });
        return pixels;
    }
    /// The rows as text: '.' black, '#' white, 'r' red, 'b' blue, 'g' gray, '?' anything else.
    Rows rows() const
    {
        const std::map<COLORREF, char> letters = {
            {black, '.'}, {white, '#'}, {red, 'r'}, {blue, 'b'}, {gray, 'g'}};
        Rows lines(static_cast<std::size_t>(height_));
        visit([&](int, int y, COLORREF found) {
            const auto letter = letters.find(found);
            lines[static_cast<std::size_t>(y)] += letter == letters.end() ? '?' : letter->second;
        });
        return lines;
    }
    void fill(const RECT &rect, COLORREF colour) const { theme::fill(dc, rect, colour); }

    const HDC dc;
    const HBITMAP bitmap;

private:
    /// Calls `look` with the place and colour of every pixel, row by row.
    template <class Look>
    void visit(const Look &look) const
    {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                look(x, y, getPixel(dc, x, y));
            }
        }
    }

    int width_;
    int height_;
    HGDIOBJ previous_;
};

// Layout and drawing of the high-score page: two headings, three column heads, up to eight rows.
#include "frontend/high_score_page.h"

#include "frontend/title_background.h"
#include "render/lettering.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

constexpr int fontHeight = 16;
constexpr COLORREF headingColour = RGB(255, 255, 255);
constexpr COLORREF rowColour = RGB(170, 233, 255);
constexpr COLORREF outlineColour = RGB(0, 0, 0);

constexpr RECT headingRect{0, 54, 96, 98};
constexpr RECT modeRect{144, 54, 240, 98};

constexpr int rowTop = 122;
constexpr int rowPitch = 14;
constexpr int rowHeight = 16;

/// The columns of the list; names start at the left, numbers end at the right.
struct Column
{
    LONG left;
    LONG right;
};
constexpr Column nameColumn{10, 100};
constexpr Column scoreColumn{100, 150};
constexpr Column linesColumn{150, 190};
constexpr Column levelColumn{190, 230};

/// One line of text with an outline of one pixel.
void drawOutlinedText(HDC dc, const RECT &rect, LPCWSTR text, UINT alignment, COLORREF colour)
{
    constexpr POINT neighbours[] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}};
    for (const POINT &step : neighbours) {
        RECT moved = rect;
        OffsetRect(&moved, step.x, step.y);
        drawText(dc, moved, text, alignment, outlineColour);
    }
    drawText(dc, rect, text, alignment, colour);
}

void drawString(HDC dc, const RECT &rect, UINT stringId, UINT alignment)
{
    drawOutlinedText(dc, rect, loadText(stringId).c_str(), alignment, headingColour);
}

void drawNumber(HDC dc, const RECT &rect, int value)
{
    WCHAR text[33];
    drawOutlinedText(dc, rect, _itow(value, text, 10), DT_RIGHT, rowColour);
}

void drawRow(HDC dc, int row, const HighScoreEntry &entry)
{
    const LONG top = rowTop + rowPitch * row;
    const auto cell = [top](const Column &column) {
        return RECT{column.left, top, column.right, top + rowHeight};
    };
    drawOutlinedText(dc, cell(nameColumn), entry.name.data(), DT_LEFT, rowColour);
    drawNumber(dc, cell(scoreColumn), entry.score);
    drawNumber(dc, cell(linesColumn), entry.lines);
    drawNumber(dc, cell(levelColumn), entry.level);
}

void drawHeadings(HDC dc, int mode)
{
    drawString(dc, headingRect, IDS_HIGH_SCORES, DT_CENTER);
    drawString(dc, modeRect, IDS_MODE_0 + static_cast<UINT>(mode), DT_CENTER);
    drawString(dc, {scoreColumn.left, 105, scoreColumn.right, 123}, IDS_SCORE, DT_RIGHT);
    drawString(dc, {linesColumn.left, 105, linesColumn.right, 123}, IDS_LINES, DT_RIGHT);
    drawString(dc, {levelColumn.left, 105, levelColumn.right, 123}, IDS_LEVEL, DT_RIGHT);
}

/// Draws the rows above the first empty one.
void drawRows(HDC dc, const HighScoreTable &table)
{
    for (int row = 0; row < HighScoreTable::size; ++row) {
        const HighScoreEntry &entry = table.entries[static_cast<std::size_t>(row)];
        if (entry.score == 0) {
            return;
        }
        drawRow(dc, row, entry);
    }
}

} // namespace

bool drawHighScorePage(const HighScoreTable &table, HDC source, HDC target)
{
    drawTitleBackground(source, target);
    const BoldFont font(target, fontHeight);
    drawHeadings(target, table.mode);
    drawRows(target, table);
    return true;
}

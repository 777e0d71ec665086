#pragma once
// Sizes given in twips (1/1440 inch) mapped to screen pixels at the usual 96 dpi.

namespace est::ui {

constexpr int twipsToPixels(int twips)
{
    return (twips * 96 + 720) / 1440;
}

} // namespace est::ui

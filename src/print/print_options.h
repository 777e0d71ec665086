#pragma once
// What the user chose to print: the layout of the main document and the extra sheets.

#include <QString>

namespace est::print {

// The two alternative designs of the main document and its paint sheet.
enum class Layout { A, B };

// Pages of the estimate's photos: none, four to a page with captions, or one large.
enum class PhotoPages { None, Four, One };

struct PrintOptions
{
    Layout layout = Layout::A;
    bool shopCopy = false;    // chkHikae: the whole set once more, marked "控"
    bool paintSheet = false;  // chkPaint: the paint rows on a sheet of their own
    bool subSheet = false;    // chkPSisu: bumper, additional and paint index details
    PhotoPages photos = PhotoPages::None;   // chkPhoto with optPhoto4 / optPhoto1
};

// "A" / "B" as the settings store and the command line name the layouts.
QString layoutName(Layout layout);
// Reads "A" or "B" (any case); anything else gives nothing.
bool parseLayout(const QString &text, Layout *layout);

} // namespace est::print

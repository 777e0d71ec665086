#pragma once
// The fonts pages are printed with: copies of Noto Sans and Noto Serif CJK JP, made at build
// time (tools/make_print_font.py), whose character maps give every ideograph its own code
// point in a PDF's text, so a printed 山田 is found and copied as 山田, not as radicals.

#include <QString>
#include <QStringList>

namespace est::print {

struct PrintFonts
{
    QStringList sans;    // families in order of preference
    QStringList serif;
};

// Registers the copies with the font database on first use (a QGuiApplication must exist).
// When they are missing, the system's Noto CJK prints the pages instead.
const PrintFonts &printFonts();

// The folders searched for the copies: beside an installed program, then the build's own
// ("fonts" in a folder above the program).
QStringList printFontFolders();

} // namespace est::print

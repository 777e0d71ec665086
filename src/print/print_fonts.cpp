#include "print/print_fonts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>

namespace est::print {

namespace {

const QStringList kFiles{QStringLiteral("NotoSansCJKjp-Print-Regular.otf"), QStringLiteral("NotoSansCJKjp-Print-Bold.otf"),
                         QStringLiteral("NotoSerifCJKjp-Print-Bold.otf")};

PrintFonts registerFonts()
{
    PrintFonts fonts{{QStringLiteral("Noto Sans CJK JP")}, {QStringLiteral("Noto Serif CJK JP")}};
    for (const QString &folder : printFontFolders()) {
        const QDir dir(folder);
        if (!dir.exists(kFiles.first()))
            continue;
        QStringList families;
        for (const QString &file : kFiles)
            families += QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(dir.filePath(file)));
        for (const QString &family : families) {
            QStringList &list = family.contains(QLatin1String("Serif")) ? fonts.serif : fonts.sans;
            if (!list.contains(family))
                list.prepend(family);
        }
        break;
    }
    return fonts;
}

} // namespace

const PrintFonts &printFonts()
{
    static const PrintFonts fonts = registerFonts();
    return fonts;
}

QStringList printFontFolders()
{
    return {QCoreApplication::applicationDirPath() + QStringLiteral("/../share/estimate/fonts"),
            QStringLiteral(ESTIMATE_BUILD_FONT_DIR)};
}

} // namespace est::print

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
    // No build path is compiled in (the package must not carry one): a build's fonts folder
    // lies a few folders above each of its programs (src/app, tests/print, bench/print).
    const QString program = QCoreApplication::applicationDirPath();
    QStringList folders{program + QStringLiteral("/../share/estimate/fonts")};
    QDir dir(program);
    for (int up = 0; up < 3 && dir.cdUp(); ++up)
        folders.append(dir.filePath(QStringLiteral("fonts")));
    return folders;
}

} // namespace est::print

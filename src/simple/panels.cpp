#include "simple/panels.h"

namespace est::simple {

const QList<Panel> &panels()
{
    static const QList<Panel> all = {
        {1, "imgBampa", QStringLiteral("バンパー")},
        {2, "imgFender", QStringLiteral("フェンダー")},
        {3, "imgFrDoor", QStringLiteral("フロントドア")},
        {4, "imgRrDoor", QStringLiteral("リヤドア")},
        {5, "imgQuarter", QStringLiteral("クォーターパネル")},
        {6, "imgFood", QStringLiteral("ボンネット")},
        {7, "imgRoof", QStringLiteral("ルーフ")},
        {8, "imgTrank", QStringLiteral("トランク")},
        {9, "imgRightPanel", QStringLiteral("リヤパネル")},
        {10, "imgMaskP", QStringLiteral("マスクパネル")},
        {11, "imgSraidDor", QStringLiteral("スライドドア")},
    };
    return all;
}

const Panel *panelByNum(int num)
{
    for (const Panel &panel : panels())
        if (panel.num == num)
            return &panel;
    return nullptr;
}

} // namespace est::simple

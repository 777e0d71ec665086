#include "print/print_check.h"

namespace est::print {

std::optional<QString> checkPrintable(const SavedEstimate &saved)
{
    if (saved.title.isEmpty() || saved.honorific.isEmpty())
        return QStringLiteral("帳票の表題か顧客名の敬称が\n選択されていません。\n印刷を中止します。");
    return std::nullopt;
}

} // namespace est::print

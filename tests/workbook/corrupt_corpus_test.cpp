// A generated corpus of damaged estimate workbooks: bytes flipped, files cut short, parts
// removed, XML cut, cells given absurd addresses or values. Each one is either read or
// refused with a WorkbookError; nothing crashes, and a refused one leaves the session as it
// was. (Run this test under AddressSanitizer to check for leaks and overruns as well.)

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/default_template.h"
#include "workbook/estimate_layout.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

using namespace est;
using namespace est::workbook;

namespace {

QByteArray savedEstimate()
{
    static const QByteArray bytes = [] {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("newfile.xlsx"));
        writeDefaultTemplate(path);
        auto book = Workbook::open(path);
        writeEstimate(*book, test::fullEstimate(21));
        return book->toBytes();
    }();
    return bytes;
}

// Parts an estimate reader actually parses.
const char *const kParsedParts[] = {
    "xl/worksheets/sheet6.xml", "xl/worksheets/sheet7.xml", "xl/workbook.xml", "xl/_rels/workbook.xml.rels",
    "_rels/.rels", "[Content_Types].xml", "xl/styles.xml",
};

QByteArray mutate(int seed)
{
    std::mt19937 rng(std::uint32_t(seed) * 7919u + 17u);
    auto pick = [&](qsizetype n) { return qsizetype(std::uniform_int_distribution<qint64>(0, qMax<qint64>(n - 1, 0))(rng)); };
    QByteArray bytes = savedEstimate();
    switch (seed % 10) {
    case 0:   // cut short
        return bytes.left(pick(bytes.size()));
    case 1:   // random bytes changed
        for (int i = 0, n = 1 + int(pick(40)); i < n; ++i)
            bytes[pick(bytes.size())] = char(pick(256));
        return bytes;
    case 2:   // a range zeroed
    {
        const qsizetype at = pick(bytes.size());
        bytes.replace(at, qMin<qsizetype>(pick(4096), bytes.size() - at), QByteArray(pick(4096), '\0'));
        return bytes;
    }
    default:
        break;
    }
    test::Parts parts = test::unzipParts(bytes);
    const QString target = QString::fromLatin1(kParsedParts[pick(std::size(kParsedParts))]);
    for (auto &[name, data] : parts) {
        if (name != target)
            continue;
        switch (seed % 10) {
        case 3:   // XML cut at a random place
            data = data.left(pick(data.size()));
            break;
        case 4:   // a random slice removed
        {
            const qsizetype at = pick(data.size());
            data.remove(at, pick(2000));
            break;
        }
        case 5:   // absurd row numbers and addresses
            data.replace("r=\"1", "r=\"9999999999");
            data.replace("r=\"A", "r=\"ZZZZZ");
            break;
        case 6:   // counts and numbers out of range or not numbers
            data.replace("<v>393</v>", seed % 3 ? "<v>40000</v>" : "<v>x</v>");
            data.replace("<v>73</v>", "<v>-5</v>");
            data.replace("<v>98</v>", "<v>1e308</v>");
            data.replace("<v>", "<v>-");
            break;
        case 7:   // markup injected: entities, a doctype, deep nesting
            data.insert(data.indexOf("<sheetData>") + 11 > 10 ? data.indexOf("<sheetData>") + 11 : 0,
                        QByteArray("<row r=\"5\"><c r=\"A5\" t=\"s\"><v>999999</v></c></row>") +
                            QByteArray(pick(2000), '<') + "&lol;&#0;&#xFFFFFF;");
            break;
        case 8:   // types changed under the values
            data.replace("t=\"inlineStr\"", "t=\"s\"");
            data.replace("t=\"b\"", "t=\"e\"");
            break;
        default:  // the part removed or emptied
            data.clear();
            break;
        }
    }
    if (seed % 20 == 9)
        parts.removeIf([&](const auto &part) { return part.first == target; });
    return test::zipParts(parts);
}

} // namespace

class CorruptWorkbooks : public testing::TestWithParam<int>
{
};

TEST_P(CorruptWorkbooks, AreReadOrRefusedWithAMessage)
{
    const QByteArray bytes = mutate(GetParam());
    Session session = test::randomEstimate(5);
    const QStringList before = test::storedFields(session);
    try {
        auto book = Workbook::fromBytes(bytes);
        readEstimate(*book, session);
    } catch (const WorkbookError &e) {
        EXPECT_FALSE(e.detail().isEmpty());
        EXPECT_EQ(test::storedFields(session), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, CorruptWorkbooks, testing::Range(0, 100));

TEST(CorruptWorkbooks, MostOfTheCorpusIsRefused)
{
    int refused = 0;
    for (int seed = 0; seed < 100; ++seed) {
        Session session;
        try {
            auto book = Workbook::fromBytes(mutate(seed));
            readEstimate(*book, session);
        } catch (const WorkbookError &) {
            ++refused;
        }
    }
    // Some changes leave a readable workbook (a flipped byte in an unused part); most do not.
    EXPECT_GT(refused, 50);
    EXPECT_LT(refused, 100);
}

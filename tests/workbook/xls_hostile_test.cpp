// .xls files built to make FreeXL read out of bounds, loop or allocate without limit: each is
// refused as a broken workbook before FreeXL sees it, and nothing of the estimate changes.
// Made from a real sample: its workbook stream is changed record by record and put back into a
// compound file, or the compound file itself is changed.

#include "sample_estimate.h"
#include "scripted_messages.h"
#include "workbook/biff_rewrite.h"
#include "workbook/cfb_stream.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <random>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

QByteArray sampleBytes()
{
    static const QByteArray bytes = [] {
        QFile f(QDir(test::xlsSampleFolder()).filePath(QStringLiteral("kind1.xls")));
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();
    return bytes;
}

quint16 u16(const QByteArray &b, qsizetype at)
{
    return quint16(quint8(b[at]) | quint8(b[at + 1]) << 8);
}

void set16(QByteArray &b, qsizetype at, quint32 v)
{
    b[at] = char(v & 0xFF);
    b[at + 1] = char(v >> 8 & 0xFF);
}

void set32(QByteArray &b, qsizetype at, quint32 v)
{
    set16(b, at, v & 0xFFFF);
    set16(b, at + 2, v >> 16);
}

// Offsets of the bodies of the records of a type, in stream order.
QList<qsizetype> bodiesOf(const QByteArray &stream, quint16 type)
{
    QList<qsizetype> found;
    for (qsizetype pos = 0; pos + 4 <= stream.size(); pos += 4 + u16(stream, pos + 2))
        if (u16(stream, pos) == type)
            found.append(pos + 4);
    return found;
}

std::optional<ErrorKind> readError(const QByteArray &bytes)
{
    try {
        auto book = XlsBook::fromBytes(bytes);
        Session session;
        readEstimate(*book, session);
        return std::nullopt;
    } catch (const WorkbookError &e) {
        return e.kind();
    }
}

struct StreamChange
{
    const char *name;
    std::function<void(QByteArray &stream)> change;
};

class ChangedStream : public testing::TestWithParam<StreamChange>
{
};

const quint16 kDimension = 0x0200, kSst = 0x00FC, kLabelSst = 0x00FD, kBoundSheet = 0x0085, kXf = 0x00E0,
              kRk = 0x027E, kMulRk = 0x00BD, kBof = 0x0809;

} // namespace

TEST_P(ChangedStream, IsRefusedAsABrokenWorkbook)
{
    QByteArray stream = detail::workbookStream(sampleBytes(), {});
    GetParam().change(stream);
    EXPECT_EQ(readError(detail::compoundFileWith(stream)), ErrorKind::Damaged);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, ChangedStream,
    testing::Values(
        // 0x10000001 rows of 16 columns: FreeXL's 32-bit product would wrap to a small block.
        StreamChange{"WrappingSheetSize", [](QByteArray &s) { for (auto at : bodiesOf(s, kDimension)) { set32(s, at + 4, 0x10000001); set16(s, at + 10, 16); } }},
        StreamChange{"SheetOfAMillionCells", [](QByteArray &s) { for (auto at : bodiesOf(s, kDimension)) { set32(s, at + 4, 65536); set16(s, at + 10, 256); } }},
        StreamChange{"SheetWithoutSize", [](QByteArray &s) { set16(s, bodiesOf(s, kDimension).last() - 4, 0x0201); }},
        // FreeXL drops what it read of a sheet at a second DIMENSION record without freeing it.
        StreamChange{"SecondSheetSize", [](QByteArray &s) {
             const qsizetype at = bodiesOf(s, kDimension).last();
             const QByteArray dimension = s.mid(at - 4, 18);
             s.insert(at + 14, dimension);
             // The next sheet, if any, moves by the record's length.
             for (auto sheet : bodiesOf(s, kBoundSheet)) {
                 const quint32 offset = quint32(u16(s, sheet)) | quint32(u16(s, sheet + 2)) << 16;
                 if (offset > quint32(at))
                     set32(s, sheet, offset + 18);
             }
         }},
        // A text FreeXL allocated, replaced by a second record of the same cell, is lost.
        StreamChange{"TextCellWrittenTwice", [](QByteArray &s) {
             const qsizetype at = bodiesOf(s, kLabelSst).first();
             QByteArray label;   // LABEL (compressed "x") at the same cell
             label.append(char(0x04)).append(char(0x02)).append(char(9)).append(char(0));
             label.append(s.mid(at, 6)).append(char(1)).append(char(0)).append(char(0)).append('x');
             s.insert(at + 10, label + label);
             for (auto sheet : bodiesOf(s, kBoundSheet)) {
                 const quint32 offset = quint32(u16(s, sheet)) | quint32(u16(s, sheet + 2)) << 16;
                 if (offset > quint32(at))
                     set32(s, sheet, offset + quint32(2 * label.size()));
             }
         }},
        StreamChange{"CellBelowTheSheet", [](QByteArray &s) { set32(s, bodiesOf(s, kDimension).first() + 4, 1); }},
        StreamChange{"FourBillionStrings", [](QByteArray &s) { set32(s, bodiesOf(s, kSst).first() + 4, 0xFFFFFFF0); }},
        StreamChange{"StringIndexBeyondTheTable", [](QByteArray &s) { set32(s, bodiesOf(s, kLabelSst).first() + 6, 0x7FFFFFFF); }},
        StreamChange{"StringLongerThanTheTable", [](QByteArray &s) { set16(s, bodiesOf(s, kSst).first() + 8, 0xFFFF); }},
        StreamChange{"RecordLongerThanTheStream", [](QByteArray &s) { set16(s, bodiesOf(s, kLabelSst).last() - 2, 8000); }},
        StreamChange{"RecordLongerThanFreeXlsBuffer", [](QByteArray &s) { set16(s, 2, 9000); }},
        StreamChange{"NoBeginningOfFile", [](QByteArray &s) { set16(s, 0, 0x0001); }},
        StreamChange{"UnknownVersion", [](QByteArray &s) { set16(s, bodiesOf(s, kBof).first(), 0x0300); }},
        StreamChange{"Encrypted", [](QByteArray &s) { set16(s, bodiesOf(s, kXf).first() - 4, 0x002F); }},
        StreamChange{"SheetNameLongerThanItsRecord", [](QByteArray &s) { s[bodiesOf(s, kBoundSheet).first() + 6] = char(200); }},
        // A date format on a number of two billion days: FreeXL counts them one by one.
        StreamChange{"DateOfTwoBillionDays", [](QByteArray &s) {
             for (auto at : bodiesOf(s, kXf))
                 set16(s, at + 2, 14);
             for (auto at : bodiesOf(s, kRk))
                 set32(s, at + 6, quint32(2000000000) << 2 | 2);
             for (auto at : bodiesOf(s, kMulRk))
                 set32(s, at + 6, quint32(2000000000) << 2 | 2);
         }}),
    [](const testing::TestParamInfo<StreamChange> &info) { return std::string(info.param.name); });

struct FileChange
{
    const char *name;
    std::function<void(QByteArray &file)> change;
    ErrorKind expected;
};

class ChangedFile : public testing::TestWithParam<FileChange>
{
};

TEST_P(ChangedFile, IsRefused)
{
    // The rebuilt container has a known layout: 512-byte sectors, the stream from sector 0,
    // then the directory, then the allocation table.
    QByteArray file = detail::compoundFileWith(detail::workbookStream(sampleBytes(), {}));
    GetParam().change(file);
    EXPECT_EQ(readError(file), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, ChangedFile,
    testing::Values(
        FileChange{"CutInHalf", [](QByteArray &f) { f.truncate(f.size() / 2); }, ErrorKind::Damaged},
        FileChange{"NotACompoundFile", [](QByteArray &f) { f[0] = 'P'; }, ErrorKind::NotAWorkbook},
        FileChange{"HugeSectors", [](QByteArray &f) { set16(f, 30, 20); }, ErrorKind::Damaged},
        // The stream's chain turns back to its first sector: FreeXL would read it forever.
        FileChange{"ChainInACircle", [](QByteArray &f) {
             const qsizetype fat = (qsizetype(quint8(f[76])) | qsizetype(quint8(f[77])) << 8) * 512 + 512;
             set32(f, fat + 4 * 3, 0);
         }, ErrorKind::Damaged},
        FileChange{"AllocationSectorOutsideTheFile", [](QByteArray &f) { set32(f, 76, 0x00FFFFFF); }, ErrorKind::Damaged},
        FileChange{"SameAllocationSectorTwice", [](QByteArray &f) { set32(f, 80, quint32(u16(f, 76))); }, ErrorKind::Damaged},
        FileChange{"EndlessAllocationIndex", [](QByteArray &f) { set32(f, 68, 0); set32(f, 72, 0xFFFFFFFF); }, ErrorKind::Damaged},
        FileChange{"StreamSizeBeyondTheFile", [](QByteArray &f) {
             const qsizetype directory = (qsizetype(quint8(f[48])) | qsizetype(quint8(f[49])) << 8) * 512 + 512;
             set32(f, directory + 128 + 120, 0x7FFFFFFF);
         }, ErrorKind::Damaged},
        FileChange{"DirectoryNameOfAThousandBytes", [](QByteArray &f) {
             const qsizetype directory = (qsizetype(quint8(f[48])) | qsizetype(quint8(f[49])) << 8) * 512 + 512;
             set16(f, directory + 64, 1000);
         }, ErrorKind::Damaged},
        FileChange{"LargerThanAnyEstimate", [](QByteArray &f) { f.append(5 * 1024 * 1024, '\0'); }, ErrorKind::TooLarge}),
    [](const testing::TestParamInfo<FileChange> &info) { return std::string(info.param.name); });

// Bytes changed at random all over a real file: each one opens or is refused, never more.
TEST(XlsCorruption, RandomChangesOpenOrAreRefused)
{
    const QByteArray original = sampleBytes();
    std::mt19937 rng(25);
    int refused = 0;
    for (int round = 0; round < 150; ++round) {
        QByteArray bytes = original;
        const int changes = 1 + int(rng() % 8);
        for (int i = 0; i < changes; ++i)
            bytes[qsizetype(rng() % quint32(bytes.size()))] = char(rng());
        if (readError(bytes))
            ++refused;
    }
    EXPECT_LT(refused, 150);   // most bytes of a workbook are cell texts and padding
}

TEST(XlsOpening, ABrokenFileLeavesTheOpenEstimateAsItWas)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("Mitsumori"));
    QFile f(QDir(dir.path()).filePath(QStringLiteral("Mitsumori/240105壊れ.xls")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(sampleBytes().left(sampleBytes().size() / 3));
    f.close();
    Session session = test::xlsSamples().front().session;
    const QStringList before = test::storedFields(session);
    test::ScriptedMessages messages;
    EXPECT_FALSE(openEstimateWorkbook(session, messages, dir.path(), QStringLiteral("240105壊れ.xls")));
    EXPECT_EQ(test::storedFields(session), before);
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("ブックの内容が壊れています。"))) << messages.lastText().toStdString();
}

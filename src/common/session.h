#pragma once
// The state that every screen of the running program shares: one instance, created at
// start-up and handed to the screens that need it. Editors copy what they need, and write
// back only when the user confirms.

#include "common/estimate_row.h"
#include "common/money.h"
#include "common/paint_state.h"
#include "common/simple_state.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace est {

// Whether the open estimate has a name yet, which decides how saving behaves.
enum class SheetState : std::int16_t {
    NotStarted = 0,  // no estimate started
    NewStarted = 1,  // a new estimate has been started
    NameChosen = 2,  // a file name has been chosen (file-name dialog, save, print)
};

// Header fields of the estimate sheet, all free text.
struct EstimateHeader
{
    int documentKind = 0;   // index into the document kinds (概算見積書 ... 納品/請求書)
    QString openingText;    // sentence above the rows, follows the document kind
    QString closingText;    // sentence below the rows
    QString amountCaption;  // caption of the amount box
    QString customerName;   // txtName
    QString customerCompany; // txtKaisya
    QString carName;        // txtSname
    QString chassisNumber;  // txtSyatai
    QString firstRegistration; // txtSnen
    QString distance;       // txtKm
    QString registration;   // txtTouroku
    QString modelCode;      // txtKata
    QString classCode;      // txtRui
    QString colour;         // txtColer
    QString engine;         // txtEg
    QString memo;           // txtMemo
};

// Totals the editors keep, whole yen.
struct EditorTotals
{
    Yen labour = 0;         // labour of the rows (lblKoutin)
    Yen parts = 0;          // parts of the rows (lblBuhin)
    Yen workTotalA = 0;     // lblSkei
    Yen paintLabour = 0;    // lblPaint
    Yen paintMaterial = 0;  // lblZairyo
    Yen bumperPaint = 0;    // lblBumpa
    Yen paintTotalB = 0;    // lblPKei
};

// The derived totals of the sheet, held as their displayed texts ("#,###"), because the
// chain of totals reads and writes displayed texts: an empty text is "no value".
struct SheetFigures
{
    QString gokei;          // A + B (lblGokei)
    QString discountRate;   // txtNebiki1, whole per cent
    QString discountAmount; // txtNebiki2
    QString afterDiscount;  // lblNGo
    QString taxRate;        // lblZeiritu, from the own-company block
    QString tax;            // lblSZei
    QString withTax;        // lblZkomi
    QString nonTaxable;     // lblHZei
    QString grandTotal;     // lblKei
    QString advance;        // txtAzukari
    QString amountDue;      // lblSeikyu
    QString amountDueCopy;  // lblGKei
    QString rememberedRate = QStringLiteral("0"); // the rate last used for the discount
};

// Chosen non-taxable items of the open estimate.
struct NonTaxableItems
{
    QStringList names;
    QList<Yen> amounts;
    std::int16_t count = 0;
    Yen sum = 0;
    bool present = false;
};

// A photo of the damage kept with the estimate: the image as stored (JPEG or PNG, upright,
// its long side at most 1,600 pixels) and its caption.
struct EstimatePhoto
{
    QByteArray image;
    QString caption;
    bool operator==(const EstimatePhoto &) const = default;
};
inline constexpr int kMaxPhotos = 60;
inline constexpr int kMaxPhotoSide = 1600;
// The stored photos of one estimate together, so that its workbook stays within what a
// workbook may be (about 100 photos' worth; 60 camera photos take 15 to 30 MB).
inline constexpr qsizetype kMaxPhotoBytes = 40 * 1024 * 1024;

struct Session
{
    SheetState sheetState = SheetState::NotStarted;
    bool editExisting = false;
    bool rateDialogRequested = false;

    // Slip counter and date of the last slip, as stored between runs.
    QString denpyoNo;
    QString denpyoDDay;
    // Slip number and era date of the open estimate.
    QString slipNumber;
    QString estimateDate;

    // The file-name text chosen for the open estimate (without date prefix and extension).
    QString fileNameText;
    // Full path of the workbook the estimate was last saved to or opened from.
    QString workbookPath;
    // The estimate's workbook file name, "<yymmdd><text>.xlsx" (file-name dialog or open dialog).
    QString fileName;
    // Revision of the estimate: 1 for the first, 2 for "<name>_R2.xlsx" (修正2) and so on.
    std::int16_t revision = 1;

    EstimateHeader header;
    QList<EstimateRow> rows;   // work rows; rows[0] is row number 1 on the sheet
    EditorTotals totals;
    SheetFigures figures;

    // Own-company block: fourteen texts in the order of the company text file.
    QStringList company = QStringList(14);

    NonTaxableItems nonTaxable;

    // Labour rates in yen per index point (0 = not set) and the shop's rounding.
    std::int16_t labourRate = 0;
    std::int16_t paintLabourRate = 0;
    std::int16_t roundDigits = 0;
    std::int16_t roundMode = 0;

    // Parts catalogue choice.
    QString maker;
    QString vehicleType;
    // The chosen maker's catalogue file (DBName) and vehicle type's table (TName);
    // maker and vehicleType above are their names as shown.
    QString makerDb;
    QString typeTable;

    // Customer and vehicle hand-over arrays.
    QStringList customer = QStringList(18);
    QStringList vehicle = QStringList(19);

    // Paint, bumper and additional-index state.
    PaintState paint;
    BumperState bumper;
    AdditionalState additional;

    // Simple estimate: work kind, vehicle classes and colour chosen last.
    SimpleEstimateState simple;

    // Photos of the damage, in their order (sheet "写真" of the workbook).
    QList<EstimatePhoto> photos;
};

// "修正3" for a revised estimate (caption of the sheet, every printed page); empty for the first.
inline QString revisionCaption(int revision)
{
    return revision > 1 ? QStringLiteral("修正%1").arg(revision) : QString();
}

} // namespace est

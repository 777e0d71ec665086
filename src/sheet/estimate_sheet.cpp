#include "sheet/estimate_sheet.h"

#include "common/number_format.h"
#include "sheet/closing_rules.h"
#include "sheet/estimate_store.h"
#include "sheet/sheet_grid_layout.h"

namespace est::sheet {

EstimateSheet::EstimateSheet(Session &session, Messages &messages)
    : m_session(session), m_messages(messages), m_chain(session.figures, session.totals)
{
}

// ---- header ------------------------------------------------------------------------------

DocumentTexts EstimateSheet::chooseDocumentKind(int kind)
{
    const DocumentTexts texts = documentTexts(kind);
    EstimateHeader &h = m_session.header;
    h.documentKind = kind;
    h.openingText = texts.opening;
    h.closingText = texts.closing;
    h.amountCaption = texts.amountCaption;
    return texts;
}

void EstimateSheet::setHeaderField(QString EstimateHeader::*field, const QString &text)
{
    m_session.header.*field = text;
}

QString EstimateSheet::slipText() const
{
    const QString &date = m_session.estimateDate;
    const QString &slip = m_session.slipNumber;
    return date.isEmpty() && slip.isEmpty() ? QString() : date + QStringLiteral(" / ") + slip;
}

CompanyLines EstimateSheet::applyCompany()
{
    const QStringList &c = m_session.company;
    auto at = [&c](int i) { return i < c.size() ? c.at(i) : QString(); };
    CompanyLines lines;
    lines.title = at(1);
    lines.name = at(2);
    lines.address = at(3);
    lines.phone = QStringLiteral("TEL ") + at(4);
    lines.fax = QStringLiteral("FAX ") + at(5);
    lines.bank = at(6);
    lines.branch = at(7);
    const auto branch = parseDisplayedNumber(at(8));
    lines.branchNumber = branch ? formatThreeDigits(qint64(*branch)) : at(8);
    lines.accountKind = at(9);
    lines.accountNumber = at(10);
    lines.accountHolder = at(12);
    m_chain.setTaxRate(at(11));
    afterChainStep();
    return lines;
}

QString EstimateSheet::versionText()
{
    return QStringLiteral("Ver %1.%2.%3")
        .arg(ESTIMATE_VERSION_MAJOR)
        .arg(ESTIMATE_VERSION_MINOR)
        .arg(ESTIMATE_VERSION_PATCH);
}

// ---- rows and totals ---------------------------------------------------------------------

QList<EstimateRow> EstimateSheet::shownRows() const
{
    QList<EstimateRow> rows = displayRows(m_session);
    for (EstimateRow &row : rows) {
        for (const int column : {int(ColLabour), int(ColUnitPrice), int(ColPartsAmount)}) {
            if (const auto yen = parseDisplayedYen(row.at(column)))
                row[column] = formatThousands(*yen);
        }
    }
    return rows;
}

void EstimateSheet::sumsChanged()
{
    m_chain.sumsChanged();
    afterChainStep();
}

void EstimateSheet::discountRateTyped(const QString &text)
{
    m_chain.setDiscountRate(text);
    afterChainStep();
}

void EstimateSheet::discountRateLeft()
{
    m_chain.discountRateLeft();
    afterChainStep();
}

void EstimateSheet::discountAmountEdited(const QString &text)
{
    m_chain.discountAmountKeyTyped();
    m_chain.setDiscountAmount(text);
    afterChainStep();
}

void EstimateSheet::discountAmountTyped(const QString &text)
{
    m_chain.setDiscountAmount(text);
    afterChainStep();
}

void EstimateSheet::advanceTyped(const QString &text)
{
    m_chain.setAdvance(text);
    afterChainStep();
}

void EstimateSheet::setNonTaxableTotal(Yen sum)
{
    m_chain.setNonTaxable(formatThousands(sum));
    afterChainStep();
}

QString EstimateSheet::amountAsLeft(const QString &text)
{
    const auto yen = parseDisplayedYen(text);
    return yen ? formatThousands(*yen) : text;
}

void EstimateSheet::afterChainStep()
{
    if (m_session.figures.rememberedRate.isEmpty())
        m_session.figures.rememberedRate = QStringLiteral("0");
    if (m_chain.overflowed()) {
        m_chain.clearOverflow();
        m_messages.inform(QStringLiteral("金額が大きすぎるため計算できません。\n"
                                         "2,147,483,647 円までの金額を入力してください。"),
                          QStringLiteral("金額の確認"), MessageIcon::Exclamation);
    }
}

void EstimateSheet::clearEstimate()
{
    const QStringList company = m_session.company;
    const QString taxRate = m_session.figures.taxRate;
    m_session.header = EstimateHeader();
    m_session.rows.clear();
    m_session.totals = EditorTotals();
    m_session.figures = SheetFigures();
    m_session.figures.taxRate = taxRate;
    m_session.nonTaxable = NonTaxableItems();
    m_session.paint = PaintState();
    m_session.bumper = BumperState();
    m_session.additional = AdditionalState();
    // A new estimate starts without the previous one's customer and vehicle.
    m_session.customer = QStringList(18);
    m_session.vehicle = QStringList(19);
    m_session.company = company;
    m_session.revision = 1;
    m_session.photos.clear();
}

// ---- end and save ------------------------------------------------------------------------

bool EstimateSheet::confirmEnd()
{
    const QString title = QStringLiteral("ファイルの保存");
    switch (endAction(m_session.sheetState, m_session.editExisting)) {
    case EndAction::EndNow:
        return true;
    case EndAction::AskSaveNew:
        switch (m_messages.askYesNoCancel(QStringLiteral("ファイルを保存しますか？"), title, MessageIcon::Question)) {
        case Answer::Yes:
            return m_store && m_store->saveWithNewName();
        case Answer::No:
            return true;
        default:
            return false;
        }
    case EndAction::AskOverwrite:
        switch (m_messages.askYesNoCancel(QStringLiteral("ファイルを上書き保存しますか？"), title,
                                          MessageIcon::Question)) {
        case Answer::Yes:
            return m_store && m_store->overwrite();
        case Answer::No:
            return true;
        default:
            return false;
        }
    }
    return false;
}

void EstimateSheet::save()
{
    if (!hasDataToSave(m_session.sheetState, m_session.editExisting)) {
        m_messages.inform(QStringLiteral("保存するデータがまだ有りません。"), QStringLiteral("保存できません。"),
                          MessageIcon::Critical);
        return;
    }
    if (m_store)
        m_store->save();
}

} // namespace est::sheet

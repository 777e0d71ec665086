#pragma once
// What the estimate sheet does, without its widgets: it keeps the session's header and
// figures up to date from what the user types, runs the chain of totals, lays out the texts
// the sheet shows, and decides what "終了" and "ファイルの保存" do. The screen forwards each
// change and shows the results.

#include "common/messages.h"
#include "common/session.h"
#include "sheet/document_kind.h"
#include "sheet/totals_chain.h"

namespace est::sheet {

class EstimateStore;

// The own-company block as the sheet shows it, line by line.
struct CompanyLines
{
    QString title, name, address, phone, fax, bank, branch, branchNumber, accountKind, accountNumber,
        accountHolder;
};

class EstimateSheet
{
public:
    EstimateSheet(Session &session, Messages &messages);

    void setStore(EstimateStore *store) { m_store = store; }

    // ---- header ----
    // The user chose a document kind; the session takes it and the texts that follow it.
    DocumentTexts chooseDocumentKind(int kind);
    void setHeaderField(QString EstimateHeader::*field, const QString &text);
    // "estimate date / slip number", empty before either is known.
    QString slipText() const;
    // The company block from the session's company array; its tax rate goes into the chain.
    CompanyLines applyCompany();
    static QString versionText();

    // ---- rows and totals ----
    // The grid's rows: amounts shown "#,###" whether a row came from an editor (plain digits)
    // or from a saved workbook (already formatted).
    QList<EstimateRow> shownRows() const;
    const SheetFigures &figures() const { return m_session.figures; }
    const EditorTotals &totals() const { return m_session.totals; }
    // The editors changed A or B.
    void sumsChanged();
    void discountRateTyped(const QString &text);
    void discountRateLeft();
    // The user changed the amount's text (typed, deleted, pasted): a hand-typed amount wins
    // over the rate.
    void discountAmountEdited(const QString &text);
    // The amount's text changed, by the user or by the sheet.
    void discountAmountTyped(const QString &text);
    void advanceTyped(const QString &text);
    void setNonTaxableTotal(Yen sum);
    // What an amount field shows once it is left: "#,###" when it reads as yen.
    static QString amountAsLeft(const QString &text);

    // A new estimate: header, rows, totals and figures cleared; company and tax rate kept.
    void clearEstimate();

    // ---- end and save ----
    // "終了": true when the program may end.
    bool confirmEnd();
    // "ファイルの保存".
    void save();

private:
    void afterChainStep();

    Session &m_session;
    Messages &m_messages;
    EstimateStore *m_store = nullptr;
    TotalsChain m_chain;
};

} // namespace est::sheet

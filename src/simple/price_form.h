#pragma once
// The logic of the price screen frmKani: the classification it was opened with, the panel
// chosen on the drawing, the unit-price rows of that panel, and the entry handed on OK.

#include "common/simple_state.h"
#include "simple/easy_estimate_store.h"

#include <QList>
#include <QString>
#include <optional>

namespace est::simple {

class PriceForm
{
public:
    // `store` may be null (the file could not be opened): the grid then stays empty.
    PriceForm(EasyEstimateStore *store, const SimpleEstimateState &state);

    const Classification &classification() const { return m_class; }
    int panel() const { return m_panel; }
    const QList<UnitPriceRow> &rows() const { return m_rows; }

    // Loads the grid as the screen opens. Work kind 2 waits for a panel; any other kind lists
    // the rows of the panel number the form holds (0, the jobs that belong to no panel).
    void open();
    // A panel of the drawing was clicked: its rows replace the grid's. False when the query
    // failed, leaving the grid as it was.
    bool choosePanel(int num);

    // The row at `index` of the grid, if there is one.
    std::optional<UnitPriceRow> row(int index) const;

    // Reads the four edit boxes into the entry for the work item editor; amounts are whole
    // yen of at least 0, an empty box counts as 0. Empty with a sentence in `error` otherwise.
    static std::optional<SimpleEntry> entry(const QString &part, const QString &content, const QString &labour,
                                            const QString &material, QString *error);

private:
    bool load(PanelMatch match);

    EasyEstimateStore *m_store;
    Classification m_class;
    int m_panel = 0;
    QList<UnitPriceRow> m_rows;
};

} // namespace est::simple

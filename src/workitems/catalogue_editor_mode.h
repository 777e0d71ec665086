#pragma once
// The five states of the catalogue editor frmBuhin and what each lets the user do.

namespace est::workitems {

enum class CatalogueEditorMode {
    Choosing, // choosing maker and vehicle type
    Browsing, // browsing classifications, sections and parts
    Adding,   // cmdNew: a new part name is typed
    Editing,  // cmdEdit: part names are changed in the grid
    Deleting, // cmdDel: a part is chosen for deletion
};

struct CatalogueEditorControls
{
    bool makerLists = false;  // dlstCarSec, dlstCType
    bool next = false;        // cmdNext
    bool treeLists = false;   // dlstBunrui, dlstKubun
    bool grid = false;        // DG1
    bool gridEditable = false;
    bool partName = false;    // txtBuhin
    bool newEditDelete = false;
    bool okCancel = false;
    bool backToStart = false; // cmdFarst
};

// `makerAndTypeChosen`: both lists have a choice; `sectionChosen`: a section is shown.
constexpr CatalogueEditorControls controlsFor(CatalogueEditorMode mode, bool makerAndTypeChosen,
                                              bool sectionChosen)
{
    CatalogueEditorControls c;
    switch (mode) {
    case CatalogueEditorMode::Choosing:
        c.makerLists = true;
        c.next = makerAndTypeChosen;
        break;
    case CatalogueEditorMode::Browsing:
        c.treeLists = true;
        c.grid = true;
        c.newEditDelete = sectionChosen;
        c.backToStart = true;
        break;
    case CatalogueEditorMode::Adding:
        c.partName = true;
        c.okCancel = true;
        break;
    case CatalogueEditorMode::Editing:
        c.grid = true;
        c.gridEditable = true;
        c.okCancel = true;
        break;
    case CatalogueEditorMode::Deleting:
        c.grid = true;
        c.okCancel = true;
        break;
    }
    return c;
}

} // namespace est::workitems

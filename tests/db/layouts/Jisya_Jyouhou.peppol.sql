-- The layout of the table Jisya_Peppol as the program made it when it was added on opening, kept to test upgrades from it.
-- The shop's electronic address for electronic invoices (Peppol ID, "0188:7000012050002"),
-- beside the company record of the same number. Empty to start with: without one,
-- the invoices name the shop by its registration number. An existing file gains this table,
-- empty, when the program opens it.
CREATE TABLE "Jisya_Peppol" (
    "JNo" INTEGER PRIMARY KEY,
    "PeppolID" TEXT NOT NULL DEFAULT ''
);
-- The shop's own entry, made with that version.
INSERT INTO "Jisya_Peppol" ("JNo", "PeppolID") VALUES (1, '0221:T1234567890123');

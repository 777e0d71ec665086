-- The layout of the table Kokyaku_Peppol as the program made it when it was added on opening, kept to test upgrades from it.
-- Electronic invoice addresses of customers, by customer number: the Peppol ID
-- ("0188:7000012050002") and the corporate number (法人番号, thirteen digits). Both optional.
-- It starts empty, also in a new installation: its rows would otherwise land on the real
-- customers of a file made by an earlier version, which gains this table when it is opened.
CREATE TABLE "Kokyaku_Peppol" (
    "KNo" TEXT NOT NULL PRIMARY KEY,
    "PeppolID" TEXT NOT NULL DEFAULT '',
    "HoujinNo" TEXT NOT NULL DEFAULT ''
);
-- The shop's own entry, made with that version.
INSERT INTO "Kokyaku_Peppol" ("KNo", "PeppolID", "HoujinNo") VALUES ('2', '0188:7000012050002', '7000012050002');

-- The layout of temp/Library.sqlite as the program made it before versions were recorded, kept to test upgrades from it.
-- temp/Library.sqlite: the estimate library, an index of the workbooks in Mitsumori.
-- It holds no data of its own: it is rebuilt from the workbooks whenever it is missing.

CREATE TABLE "LibraryVersion" ("Version" INTEGER);
INSERT INTO "LibraryVersion" ("Version") VALUES (1);

CREATE TABLE "Estimates" (
    "FileName" TEXT PRIMARY KEY,
    "Modified" INTEGER,
    "Size" INTEGER,
    "Readable" INTEGER,
    "Error" TEXT,
    "SlipNo" TEXT,
    "Day" TEXT,
    "Kind" INTEGER,
    "Customer" TEXT,
    "Company" TEXT,
    "Car" TEXT,
    "Registration" TEXT,
    "Chassis" TEXT,
    "TotalA" INTEGER,
    "TotalB" INTEGER,
    "Discount" INTEGER,
    "Tax" INTEGER,
    "NonTaxable" INTEGER,
    "GrandTotal" INTEGER,
    "AmountDue" INTEGER,
    "SearchText" TEXT);
CREATE INDEX "Estimates_Day" ON "Estimates" ("Day", "FileName");

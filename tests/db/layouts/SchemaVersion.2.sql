-- The record of layout 2, as a database of that layout carries it.
CREATE TABLE "SchemaVersion" ("version" INTEGER NOT NULL);
INSERT INTO "SchemaVersion" ("version") VALUES (2);

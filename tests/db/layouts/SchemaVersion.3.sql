-- The record of layout 3, as a database of that layout carries it.
CREATE TABLE "SchemaVersion" ("version" INTEGER NOT NULL);
INSERT INTO "SchemaVersion" ("version") VALUES (3);

-- Schema used only by the database tests.
CREATE TABLE "試験DB" (Namae TEXT);
INSERT INTO "試験DB" VALUES ('O''Brien 自動車');

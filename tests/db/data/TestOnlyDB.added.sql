-- Tables that a later version added to the test database.
CREATE TABLE "追加DB" ("Code" TEXT, "Sisu" REAL);
INSERT INTO "追加DB" VALUES ('a', 1.5);
INSERT INTO "追加DB" VALUES ('b''s', 2.25);
CREATE TABLE Second (x INTEGER);
INSERT INTO Second VALUES (7);

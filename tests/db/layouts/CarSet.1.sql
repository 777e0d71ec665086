-- The layout of Data/CarSet.sqlite as the program made it before versions were recorded, kept to test upgrades from it.
-- Data/CarSet.sqlite: the makers and vehicle types of the parts catalogue.
-- Sample data for a new installation, written by tools/gen_catalogue.py.

CREATE TABLE "M_TCarSec" ("Name" TEXT, "DBName" TEXT);
INSERT INTO "M_TCarSec" ("Name", "DBName") VALUES
    ('トヨタ', 'Toyota'),
    ('日産', 'Nissan'),
    ('ホンダ', 'Honda');

CREATE TABLE "M_TCarType" ("Type" TEXT, "TName" TEXT);
INSERT INTO "M_TCarType" ("Type", "TName") VALUES
    ('セダン', 'T_Sedan'),
    ('ミニバン', 'T_Minivan'),
    ('軽自動車', 'T_Kei');

-- Slip numbers: one row per day of the slip number ("Day", yyyy-mm-dd) with the last number
-- issued for that day, and the day on which a slip of that row was last confirmed. Every seat
-- issues its numbers from here, so no number is ever given twice. Empty to start with; an
-- existing file gains this table, empty, when the program upgrades it.
CREATE TABLE "SlipCounter" (
    "Day" TEXT PRIMARY KEY,
    "LastNo" INTEGER NOT NULL,
    "ConfirmedOn" TEXT NOT NULL
);

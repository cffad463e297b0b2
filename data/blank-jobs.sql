-- Template of the company database, and of its local copy. Each user's messages stand in a table of that user's name,
-- which comes into being with the user's row.
CREATE TABLE Projects ( -- the company job list
  Id      INTEGER PRIMARY KEY,
  JobID   TEXT NOT NULL COLLATE NOCASE,
  JobName TEXT
);
CREATE UNIQUE INDEX JobID ON Projects (JobID);

CREATE TABLE Users ( -- the presence board
  Id       INTEGER PRIMARY KEY,
  User     TEXT NOT NULL COLLATE NOCASE,
  FullName TEXT,
  State    INTEGER NOT NULL DEFAULT 0, -- -1 stemped in, 0 stemped out, 1 program closed
  Comment  TEXT
);
CREATE UNIQUE INDEX User ON Users (User);

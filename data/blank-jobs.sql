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
  Comment  TEXT,
  LastSign REAL, -- of life, in days since 30 December 1899, by the clock of the person's machine
  Login    TEXT, -- by which a start on a network drive finds the row again
  Job      TEXT, -- what a person who is stemped in works on, unless that is kept private
  JobSince REAL  -- since when, like LastSign
);
CREATE UNIQUE INDEX User ON Users (User);

-- The names of these can't be those of users. Files that lack them get them as they are used.
CREATE TABLE ":Receipts" ( -- the messages that were put into a user's table, until their senders know it
  Id        INTEGER PRIMARY KEY,
  MessageId TEXT NOT NULL
);
CREATE UNIQUE INDEX ":Receipts.MessageId" ON ":Receipts" (MessageId);

CREATE TABLE ":File" ( -- one row: a random id, given with the first write
  Id     INTEGER PRIMARY KEY,
  FileId TEXT NOT NULL
);

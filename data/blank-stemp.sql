-- Template of the per-login database. The tables of the windows' texts come into being as the windows load.
CREATE TABLE Projects ( -- the personal job list
  Id      INTEGER PRIMARY KEY,
  JobID   TEXT NOT NULL COLLATE NOCASE,
  JobName TEXT
);
CREATE UNIQUE INDEX JobID ON Projects (JobID);

CREATE TABLE NotesList (
  Id    INTEGER PRIMARY KEY,
  JobID TEXT COLLATE NOCASE,
  Note  TEXT
);

CREATE TABLE MessageBuffer ( -- the outbox
  Id      INTEGER PRIMARY KEY,
  "To"    TEXT COLLATE NOCASE,
  Message TEXT
);

CREATE TABLE PersonalStatus (
  Id     INTEGER PRIMARY KEY,
  Status TEXT
);

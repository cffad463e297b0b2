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
  Id        INTEGER PRIMARY KEY,
  "To"      TEXT COLLATE NOCASE,
  Message   TEXT,
  MessageId TEXT, -- random; rows of earlier versions get theirs with the next poll
  BatchId   TEXT  -- the same for all rows of a message to several people; random; else null
);

CREATE INDEX "MessageBuffer.MessageId" ON MessageBuffer (MessageId);

CREATE TABLE MessageHistory ( -- what was received and sent
  Id        INTEGER PRIMARY KEY,
  MessageId TEXT NOT NULL,    -- of a message to several people their BatchId
  Received  INTEGER NOT NULL, -- -1 received, 0 sent
  Unread    INTEGER NOT NULL, -- -1 until it is clicked away
  Person    TEXT,             -- the sender, or the recipient
  Message   TEXT,
  Time      REAL,             -- when it was taken in, or left
  Reached   INTEGER           -- of a message to several people, how many it has reached; else null
);
CREATE UNIQUE INDEX "MessageHistory.MessageId" ON MessageHistory (MessageId, Received); -- one can write to oneself
CREATE INDEX "MessageHistory.Unread" ON MessageHistory (Unread);

CREATE TABLE MessageAcknowledgements ( -- what is to be deleted in the company database FileId
  Id        INTEGER PRIMARY KEY,
  FileId    TEXT NOT NULL,
  MessageId TEXT NOT NULL,
  Kind      INTEGER NOT NULL -- 0 a receipt, 1 a message
);
CREATE INDEX "MessageAcknowledgements.MessageId" ON MessageAcknowledgements (MessageId);

CREATE TABLE PersonalStatus (
  Id     INTEGER PRIMARY KEY,
  Status TEXT
);

CREATE TABLE ParkedStemps ( -- time rows that their file did not take, until it does. Files that lack it get it when needed
  Id           INTEGER PRIMARY KEY,
  StempId      TEXT NOT NULL, -- the row's own
  Person       TEXT NOT NULL, -- whose row it is: the file may serve several
  TimeFile     TEXT NOT NULL, -- the name of the file that it belongs to
  StoredId     INTEGER,       -- its Id there when it was last seen, 0 if it never was
  JobID        TEXT,
  JobName      TEXT,
  StempInTime  REAL,
  StempOutTime REAL           -- null while the row is open
);
CREATE UNIQUE INDEX "ParkedStemps.StempId" ON ParkedStemps (StempId);

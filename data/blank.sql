-- Template of a person's time database. Times are days since 30 December 1899, local time, the time of day as fraction.
CREATE TABLE Stemp (
  Id           INTEGER PRIMARY KEY,
  JobID        TEXT COLLATE NOCASE,
  JobName      TEXT,
  StempInTime  REAL,
  StempOutTime REAL, -- null while the row is open
  StempId      TEXT  -- random, the row's own; rows of earlier versions and of other tools have none
);
CREATE INDEX StempInTime ON Stemp (StempInTime);
CREATE UNIQUE INDEX StempId ON Stemp (StempId) WHERE StempId IS NOT NULL;
CREATE INDEX OpenRows ON Stemp (StempOutTime) WHERE StempOutTime IS NULL; -- so that no start looks through years of rows

-- The inventory in an SQLite file. Names compare as exact strings: BINARY is SQLite's own collation.
-- SQLite keeps text of any length; the widths are what its driver tells a reader.

CREATE TABLE System_Table (
  System_Name VARCHAR(256) NOT NULL,
  System_Type INTEGER,
  IP_Address VARCHAR(256),
  System_Description VARCHAR(1024)
);

CREATE UNIQUE INDEX System_Table_Key ON System_Table (System_Name);

-- An agent is one of standard mode until it has reported another, which is none of this program.
-- Two rows for one computer and agent are met in practice, so that the index is a plain one.
CREATE TABLE Module_Table (
  System_Name VARCHAR(256) NOT NULL,
  Module_ID INTEGER NOT NULL,
  Install_Directory VARCHAR(1024),
  Manual INTEGER,
  Agentless INTEGER,
  Port INTEGER,
  SystemType INTEGER DEFAULT 0
);

CREATE INDEX Module_Table_Index ON Module_Table (System_Name, Module_ID);

CREATE TABLE System_Group_Master (
  Group_Name VARCHAR(256) NOT NULL,
  Description VARCHAR(1024),
  Auto INTEGER
);

CREATE UNIQUE INDEX System_Group_Master_Key ON System_Group_Master (Group_Name);

CREATE TABLE System_Group_Detail (
  Group_Name VARCHAR(256) NOT NULL,
  OS_Type INTEGER,
  IP_Subnet VARCHAR(256),
  Domain VARCHAR(256)
);

CREATE INDEX System_Group_Detail_Index ON System_Group_Detail (Group_Name);

CREATE TABLE System_Group (
  System_Name VARCHAR(256) NOT NULL,
  Group_Name VARCHAR(256) NOT NULL
);

CREATE UNIQUE INDEX System_Group_Key ON System_Group (System_Name, Group_Name);

CREATE INDEX System_Group_Index ON System_Group (Group_Name);

CREATE TABLE Events_Table (
  Computer VARCHAR(256)
);

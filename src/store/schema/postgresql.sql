-- The inventory on PostgreSQL. The names stand without quotes: PostgreSQL folds them to lower case here and in every
-- statement alike. Collation "C" compares names byte by byte.

CREATE TABLE System_Table (
  System_Name VARCHAR(256) COLLATE "C" NOT NULL,
  System_Type INTEGER,
  IP_Address VARCHAR(256) COLLATE "C",
  System_Description VARCHAR(1024) COLLATE "C"
);

CREATE UNIQUE INDEX System_Table_Key ON System_Table (System_Name);

-- An agent is one of standard mode until it has reported another, which is none of this program.
-- Two rows for one computer and agent are met in practice, so that the index is a plain one.
CREATE TABLE Module_Table (
  System_Name VARCHAR(256) COLLATE "C" NOT NULL,
  Module_ID INTEGER NOT NULL,
  Install_Directory VARCHAR(1024) COLLATE "C",
  Manual INTEGER,
  Agentless INTEGER,
  Port INTEGER,
  SystemType INTEGER DEFAULT 0
);

CREATE INDEX Module_Table_Index ON Module_Table (System_Name, Module_ID);

CREATE TABLE System_Group_Master (
  Group_Name VARCHAR(256) COLLATE "C" NOT NULL,
  Description VARCHAR(1024) COLLATE "C",
  Auto INTEGER
);

CREATE UNIQUE INDEX System_Group_Master_Key ON System_Group_Master (Group_Name);

CREATE TABLE System_Group_Detail (
  Group_Name VARCHAR(256) COLLATE "C" NOT NULL,
  OS_Type INTEGER,
  IP_Subnet VARCHAR(256) COLLATE "C",
  Domain VARCHAR(256) COLLATE "C"
);

CREATE INDEX System_Group_Detail_Index ON System_Group_Detail (Group_Name);

CREATE TABLE System_Group (
  System_Name VARCHAR(256) COLLATE "C" NOT NULL,
  Group_Name VARCHAR(256) COLLATE "C" NOT NULL
);

CREATE UNIQUE INDEX System_Group_Key ON System_Group (System_Name, Group_Name);

CREATE INDEX System_Group_Index ON System_Group (Group_Name);

CREATE TABLE Events_Table (
  Computer VARCHAR(256) COLLATE "C"
);

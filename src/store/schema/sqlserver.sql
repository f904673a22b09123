-- The inventory on SQL Server. BIN2 compares names by code point; trailing blanks never count on this engine. The
-- widest key has 1,024 bytes of the 1,700 that an index that is not clustered allows.
-- The event store refers to a computer by name. The foreign key keeps a computer with recorded events from being
-- removed, until the program drops it.

CREATE TABLE dbo.System_Table (
  System_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL,
  System_Type INT,
  IP_Address NVARCHAR(256) COLLATE Latin1_General_100_BIN2,
  System_Description NVARCHAR(1024) COLLATE Latin1_General_100_BIN2
);

CREATE UNIQUE NONCLUSTERED INDEX System_Table_Key ON dbo.System_Table (System_Name);

-- An agent is one of standard mode until it has reported another, which is none of this program.
-- Two rows for one computer and agent are met in practice, so that the index is a plain one.
CREATE TABLE dbo.Module_Table (
  System_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL,
  Module_ID INT NOT NULL,
  Install_Directory NVARCHAR(1024) COLLATE Latin1_General_100_BIN2,
  Manual INT,
  Agentless INT,
  Port INT,
  SystemType INT DEFAULT 0
);

CREATE NONCLUSTERED INDEX Module_Table_Index ON dbo.Module_Table (System_Name, Module_ID);

CREATE TABLE dbo.System_Group_Master (
  Group_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL,
  Description NVARCHAR(1024) COLLATE Latin1_General_100_BIN2,
  Auto INT
);

CREATE UNIQUE NONCLUSTERED INDEX System_Group_Master_Key ON dbo.System_Group_Master (Group_Name);

CREATE TABLE dbo.System_Group_Detail (
  Group_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL,
  OS_Type INT,
  IP_Subnet NVARCHAR(256) COLLATE Latin1_General_100_BIN2,
  Domain NVARCHAR(256) COLLATE Latin1_General_100_BIN2
);

CREATE NONCLUSTERED INDEX System_Group_Detail_Index ON dbo.System_Group_Detail (Group_Name);

CREATE TABLE dbo.System_Group (
  System_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL,
  Group_Name NVARCHAR(256) COLLATE Latin1_General_100_BIN2 NOT NULL
);

CREATE UNIQUE NONCLUSTERED INDEX System_Group_Key ON dbo.System_Group (System_Name, Group_Name);

CREATE NONCLUSTERED INDEX System_Group_Index ON dbo.System_Group (Group_Name);

CREATE TABLE dbo.Events_Table (
  Computer NVARCHAR(256) COLLATE Latin1_General_100_BIN2
    CONSTRAINT Events_Table_Computer FOREIGN KEY REFERENCES dbo.System_Table (System_Name)
);

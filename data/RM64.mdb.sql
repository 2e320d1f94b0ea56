-- The template of a new project: the four project tables with the one Basic row, one
-- contact group and the 64 zones of the RM64 models. A new project is a byte copy of it.

CREATE TABLE Basic (
    DeviceModelName TEXT,
    CreatedBy TEXT,
    CreatedDate DATE,
    ModifiedDate DATE,
    ProjectDsc TEXT,
    IsUnicode BOOLEAN
);

CREATE TABLE UserGroups (
    GroupName TEXT,
    GroupDsc TEXT
);

CREATE TABLE Users (
    UserName TEXT,
    PhoneNumber TEXT,
    UserDsc TEXT,
    GroupName TEXT,
    IsDisable BOOLEAN
);

-- ZoneNo is the rowid, so the natural order of the zones is ascending ZoneNo.
CREATE TABLE Zones (
    ZoneNo INTEGER PRIMARY KEY,
    ZoneName TEXT,
    ZoneDsc TEXT,
    GroupName TEXT,
    AlarmSMS TEXT,
    ResetSMS TEXT,
    IsDisable BOOLEAN
);

-- Messages default to Unicode: zone texts are Chinese, and UCS-2 is the form a phone shows
-- them in, whatever code page the PC uses.
INSERT INTO Basic (DeviceModelName, CreatedBy, CreatedDate, ModifiedDate, ProjectDsc, IsUnicode)
    VALUES ('RM64MT', '', NULL, NULL, '', 1);

-- A project is never without a group: the dialogs offer groups to choose from.
INSERT INTO UserGroups (GroupName, GroupDsc) VALUES ('UserGroup1', '');

INSERT INTO Zones (ZoneNo, ZoneName, ZoneDsc, GroupName, AlarmSMS, ResetSMS, IsDisable) VALUES
    (0, '', '', '', '', '', 0),
    (1, '', '', '', '', '', 0),
    (2, '', '', '', '', '', 0),
    (3, '', '', '', '', '', 0),
    (4, '', '', '', '', '', 0),
    (5, '', '', '', '', '', 0),
    (6, '', '', '', '', '', 0),
    (7, '', '', '', '', '', 0),
    (8, '', '', '', '', '', 0),
    (9, '', '', '', '', '', 0),
    (10, '', '', '', '', '', 0),
    (11, '', '', '', '', '', 0),
    (12, '', '', '', '', '', 0),
    (13, '', '', '', '', '', 0),
    (14, '', '', '', '', '', 0),
    (15, '', '', '', '', '', 0),
    (16, '', '', '', '', '', 0),
    (17, '', '', '', '', '', 0),
    (18, '', '', '', '', '', 0),
    (19, '', '', '', '', '', 0),
    (20, '', '', '', '', '', 0),
    (21, '', '', '', '', '', 0),
    (22, '', '', '', '', '', 0),
    (23, '', '', '', '', '', 0),
    (24, '', '', '', '', '', 0),
    (25, '', '', '', '', '', 0),
    (26, '', '', '', '', '', 0),
    (27, '', '', '', '', '', 0),
    (28, '', '', '', '', '', 0),
    (29, '', '', '', '', '', 0),
    (30, '', '', '', '', '', 0),
    (31, '', '', '', '', '', 0),
    (32, '', '', '', '', '', 0),
    (33, '', '', '', '', '', 0),
    (34, '', '', '', '', '', 0),
    (35, '', '', '', '', '', 0),
    (36, '', '', '', '', '', 0),
    (37, '', '', '', '', '', 0),
    (38, '', '', '', '', '', 0),
    (39, '', '', '', '', '', 0),
    (40, '', '', '', '', '', 0),
    (41, '', '', '', '', '', 0),
    (42, '', '', '', '', '', 0),
    (43, '', '', '', '', '', 0),
    (44, '', '', '', '', '', 0),
    (45, '', '', '', '', '', 0),
    (46, '', '', '', '', '', 0),
    (47, '', '', '', '', '', 0),
    (48, '', '', '', '', '', 0),
    (49, '', '', '', '', '', 0),
    (50, '', '', '', '', '', 0),
    (51, '', '', '', '', '', 0),
    (52, '', '', '', '', '', 0),
    (53, '', '', '', '', '', 0),
    (54, '', '', '', '', '', 0),
    (55, '', '', '', '', '', 0),
    (56, '', '', '', '', '', 0),
    (57, '', '', '', '', '', 0),
    (58, '', '', '', '', '', 0),
    (59, '', '', '', '', '', 0),
    (60, '', '', '', '', '', 0),
    (61, '', '', '', '', '', 0),
    (62, '', '', '', '', '', 0),
    (63, '', '', '', '', '', 0);

-- The system database: the model catalogue, the serial speeds of each model, and the
-- list of recently opened projects (empty as delivered). data/README.md explains the numbers.

CREATE TABLE CommBaudList (
    ModelName TEXT,
    BaudRate TEXT,
    BaudID INTEGER
);

CREATE TABLE ModelList (
    ModelName TEXT,
    MaxTelNo INTEGER,
    MaxMemoryByte INTEGER
);

CREATE TABLE MRUList (
    FilePath TEXT
);

INSERT INTO ModelList (ModelName, MaxTelNo, MaxMemoryByte) VALUES
    ('RM64T', 64, 12288),
    ('RM64MT', 128, 16384);

-- BaudID is the speed code in bits 5..0 of the device's setting register; the codes are
-- shared by the family, and each model lists the speeds it offers, slowest first.
INSERT INTO CommBaudList (ModelName, BaudRate, BaudID) VALUES
    ('RM64T', '1200', 0),
    ('RM64T', '2400', 1),
    ('RM64T', '4800', 2),
    ('RM64T', '9600', 3),
    ('RM64T', '19200', 4),
    ('RM64T', '38400', 5),
    ('RM64MT', '1200', 0),
    ('RM64MT', '2400', 1),
    ('RM64MT', '4800', 2),
    ('RM64MT', '9600', 3),
    ('RM64MT', '19200', 4),
    ('RM64MT', '38400', 5),
    ('RM64MT', '57600', 6),
    ('RM64MT', '115200', 7);

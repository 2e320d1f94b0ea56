-- The language database. A language is a column of both tables; the rows are kept in
-- ml/Text.tsv and ml/Form.tsv and imported after these statements.

CREATE TABLE "Text" (
    ModuleName TEXT,
    ID INTEGER,
    Seq INTEGER,
    IsDisable BOOLEAN,
    ChineseBig5 TEXT,
    ChineseGB TEXT,
    English TEXT
);

CREATE TABLE "Form" (
    FormName TEXT,
    Objectpath TEXT,
    PropertyName TEXT,
    ChineseBig5 TEXT,
    ChineseGB TEXT,
    English TEXT
);

-- Tables of a project. A page's id has no unique key: a project in which two rows share an id must still open, and be told about.

CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG, script MEMO, changingdate DATE, expanded BIT);

CREATE INDEX SeiteId ON Seite (id);

CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO);

CREATE TABLE Dateien (pfad TEXT, dateiname TEXT, erweiterung TEXT, [dateityp-id] LONG, übertragen BIT, dateidatum DATE, pfadLokal TEXT);

CREATE TABLE Artikel (Artikel_deutsch TEXT, Artikel_englisch TEXT, Preis_Euro DOUBLE, Preis_Dollar DOUBLE, Artikelnummer COUNTER CONSTRAINT Artikelnummer PRIMARY KEY);

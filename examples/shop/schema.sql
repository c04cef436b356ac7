CREATE TABLE shop (name TEXT, claim TEXT);
CREATE TABLE hours (day TEXT, opening TEXT);
CREATE TABLE news (day TEXT, text TEXT);
CREATE TABLE category (key TEXT PRIMARY KEY, name TEXT, blurb TEXT);
CREATE TABLE product (
    key TEXT PRIMARY KEY, category TEXT REFERENCES category, name TEXT, blurb TEXT,
    cents INTEGER, stock INTEGER, tint TEXT, badge TEXT
);
CREATE TABLE entry (name TEXT, words TEXT, written TEXT);
PRAGMA user_version = 1;

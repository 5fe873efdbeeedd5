-- The bookshop's database, with a few rows to look at.
PRAGMA foreign_keys = ON;

CREATE TABLE Authors (
  AuthorID INTEGER NOT NULL PRIMARY KEY,
  Name     VARCHAR(60) NOT NULL,
  Country  VARCHAR(40),
  Born     INTEGER
);

CREATE TABLE Books (
  BookID    INTEGER NOT NULL PRIMARY KEY,
  AuthorID  INTEGER NOT NULL REFERENCES Authors (AuthorID),
  Title     VARCHAR(100) NOT NULL,
  ISBN      CHAR(13),
  Price     DECIMAL(8,2) NOT NULL,
  Stock     INTEGER NOT NULL DEFAULT 0,
  Published DATE,
  InPrint   BOOLEAN NOT NULL DEFAULT 1,
  Blurb     TEXT,
  Cover     BLOB
);

CREATE INDEX BooksByAuthor ON Books (AuthorID);

CREATE TABLE Customers (
  CustomerID INTEGER NOT NULL PRIMARY KEY,
  Name       VARCHAR(60) NOT NULL,
  Email      VARCHAR(80),
  Street     VARCHAR(60),
  PostCode   VARCHAR(12),
  City       VARCHAR(40),
  Country    VARCHAR(40),
  Notes      TEXT
);

CREATE TABLE Orders (
  OrderID    INTEGER NOT NULL PRIMARY KEY,
  CustomerID INTEGER NOT NULL REFERENCES Customers (CustomerID),
  OrderDate  DATE NOT NULL,
  Status     VARCHAR(10) NOT NULL DEFAULT 'open',
  Paid       BOOLEAN NOT NULL DEFAULT 0
);

CREATE TABLE OrderLines (
  OrderID   INTEGER NOT NULL REFERENCES Orders (OrderID),
  LineNo    INTEGER NOT NULL,
  BookID    INTEGER NOT NULL REFERENCES Books (BookID),
  Quantity  INTEGER NOT NULL DEFAULT 1,
  UnitPrice DECIMAL(8,2) NOT NULL,
  PRIMARY KEY (OrderID, LineNo)
);

INSERT INTO Authors VALUES
  (1, 'Jane Austen',        'England',  1775),
  (2, 'Herman Melville',    'USA',      1819),
  (3, 'Mary Shelley',       'England',  1797),
  (4, 'Jules Verne',        'France',   1828),
  (5, 'Charlotte Brontë',   'England',  1816),
  (6, 'Lewis Carroll',      'England',  1832),
  (7, 'Theodor Fontane',    'Prussia',  1819),
  (8, 'Selma Lagerlöf',     'Sweden',   1858);

INSERT INTO Books (BookID, AuthorID, Title, ISBN, Price, Stock, Published, InPrint, Blurb) VALUES
  (1,  1, 'Pride and Prejudice',              '9780000000011',  9.50, 14, '1813-01-28', 1, 'Five daughters, one rich neighbour and a great deal of talk.'),
  (2,  1, 'Emma',                             '9780000000028',  8.90,  6, '1815-12-23', 1, 'She arranges the lives of her friends, and is wrong every time.'),
  (3,  2, 'Moby-Dick',                        '9780000000035', 12.00,  9, '1851-10-18', 1, 'A captain looks for a whale.'),
  (4,  3, 'Frankenstein',                     '9780000000042',  7.95, 21, '1818-01-01', 1, 'What is made must be looked after.'),
  (5,  4, 'Twenty Thousand Leagues',          '9780000000059', 11.25,  4, '1870-03-20', 1, 'Under the sea with a host who does not let his guests go.'),
  (6,  4, 'Around the World in Eighty Days',  '9780000000066',  8.25, 17, '1873-01-30', 1, 'A bet, a train, an elephant and a clock.'),
  (7,  5, 'Jane Eyre',                        '9780000000073', 10.50, 11, '1847-10-16', 1, 'A governess, a manor, and somebody upstairs.'),
  (8,  6, 'Alice in Wonderland',              '9780000000080',  6.75, 30, '1865-11-26', 1, 'Down a rabbit hole in an afternoon.'),
  (9,  7, 'Effi Briest',                      '9780000000097',  9.00,  3, '1895-10-01', 1, 'That is too wide a field.'),
  (10, 8, 'The Wonderful Adventures of Nils', '9780000000103', 13.40,  0, '1906-11-24', 0, NULL);

INSERT INTO Customers VALUES
  (1, 'Clara Neumann', 'clara@example.org',  'Lindenstr. 12',   '10969',    'Berlin',    'Germany', 'Prefers hardcover.'),
  (2, 'Tom Whitfield', 'tom@example.org',    '4 Mill Lane',     'OX1 2JD',  'Oxford',    'England', NULL),
  (3, 'Ines Duarte',   'ines@example.org',   'Rua do Sol 7',    '1250-231', 'Lisbon',    'Portugal', 'Ask before sending by courier.'),
  (4, 'Karl Ekman',    NULL,                 'Storgatan 31',    '114 55',   'Stockholm', 'Sweden',  NULL);

INSERT INTO Orders VALUES
  (1001, 1, '2024-03-04', 'shipped', 1),
  (1002, 2, '2024-03-11', 'shipped', 1),
  (1003, 1, '2024-04-02', 'packed',  1),
  (1004, 3, '2024-04-05', 'open',    0),
  (1005, 4, '2024-04-09', 'open',    0);

INSERT INTO OrderLines VALUES
  (1001, 1, 1, 1,  9.50),
  (1001, 2, 7, 1, 10.50),
  (1002, 1, 3, 2, 12.00),
  (1003, 1, 4, 1,  7.95),
  (1003, 2, 5, 1, 11.25),
  (1003, 3, 6, 3,  8.25),
  (1004, 1, 8, 5,  6.75),
  (1005, 1, 9, 1,  9.00),
  (1005, 2, 2, 1,  8.90);

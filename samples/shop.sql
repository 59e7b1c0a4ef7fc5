-- SPDX-License-Identifier: MIT
-- The database of the sample shop, which hires out and repairs bicycles: its tables, made-up data, and every query that
-- the schemes in XST1.txt and XST2.txt name. For SQLite 3.32 or later; shop-postgresql.sql and shop-mariadb.sql are the
-- same for other databases. In a terminal, load it into a new database, convert both files to UTF-8, which SQLite
-- needs, and import them into the tables XST1 and XST2, which this script creates:
--
--     sqlite3 -bail shop.db < shop.sql
--     iconv -f WINDOWS-1252 -t UTF-8 XST1.txt > XST1.utf8
--     iconv -f WINDOWS-1252 -t UTF-8 XST2.txt > XST2.utf8
--     sqlite3 shop.db ".import --csv --skip 1 XST1.utf8 XST1" ".import --csv --skip 1 XST2.utf8 XST2"
--
-- How to run a query
--
-- Every query that returns rows is a view of the same name. SQLite has no stored procedures, so the only row of the
-- table Given holds what a query is called with:
--
--     constant     what the scheme writes after the query's name: 2 in "spG_HiresLate 2"; NULL if there is nothing
--     parameter    what the parameter kind supplies; NULL if there is none
--                    Lkey     the ID of the selected tree node, a number; 0 for a node that no query produced
--                    CKeynn   the ID of the selected tree node, a text of nn characters
--                    Text     the text of the selected tree node
--                    Today    the day as a text: '05-Mar-2026'
--
-- Set both, then select. In sqlite3:
--
--     UPDATE Given SET constant = NULL, parameter = 1003;
--     SELECT * FROM spW_HireHead;
--     UPDATE Given SET constant = NULL, parameter = 'City bicycles';
--     SELECT * FROM spW_FreeOfStyle;
--     UPDATE Given SET constant = 2, parameter = (SELECT todayText FROM ShopDay);
--     SELECT * FROM spG_HiresLate;
--
-- The action queries, those of the paragraphs of type E, are triggers of the same name. To run one, write its name
-- into the column run:
--
--     UPDATE Given SET constant = 14, parameter = (SELECT todayText FROM ShopDay), run = 'spW_WriteReminders';
--
-- The columns of a paragraph count from 0, the ID: "2:3" means the third and the fourth column of the view. In a
-- cross table, whose paragraph says "All", the ID names the row, since all other columns are summed. A query for
-- several chapters gives a row for each line of the inner chapter, and begins it with the fields of the outer one.
--
-- All dates are around the day on which the script is loaded. For another day, replace date('now', ...) in the
-- statement that fills the table Shop.

BEGIN;

-- The shop ---------------------------------------------------------------------------------------------------------

CREATE TABLE Shop(ID INTEGER PRIMARY KEY, name TEXT, address TEXT, phone TEXT, hours TEXT, hourlyRate REAL,
    pictureFolder TEXT, today TEXT);
INSERT INTO Shop VALUES(1, 'Wheel and Spanner', '12 Mill Lane', '01632 960100', 'Daily from 9 to 18', 36,
    '/srv/shop/pictures/', date('now', 'localtime'));

-- What a query is called with; see above.
CREATE TABLE Given(constant, parameter, run TEXT);
INSERT INTO Given VALUES(NULL, NULL, NULL);

-- The numbers from 0 to 199, from which most of the data is made.
CREATE TEMP TABLE N AS
    WITH RECURSIVE Numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM Numbers WHERE n < 199) SELECT n FROM Numbers;

CREATE TABLE Sections(ID INTEGER PRIMARY KEY, name TEXT);
INSERT INTO Sections VALUES(1, 'Hire'), (2, 'Repairs'), (3, 'Sales');

CREATE TABLE Pictures(name TEXT PRIMARY KEY, image BLOB);
INSERT INTO Pictures VALUES
    ('shop', X'4749463839611A000E00800000FFFFFF8B3A1E2C000000001A000E0000023C0482A9CB61D762340ED28AAE3E74670B7E558895DEC83DEACAA6DD04312E8776F3AB3A75BAEBF9CD5B65503EA1ED478C2D8E8F22B3D59B49A6094301003B'),
    ('bicycle', X'4749463839611A000C00800000FFFFFF1F5FA82C000000001A000C00000232848F101BE96F169C8845861B8D4FABCD258DE639D877789959A1E518C6299CC6AAADDC242E5AAED8AACD82A88A8F72041400003B'),
    ('part', X'4749463839610F000F00800000FFFFFF5555552C000000000F000F00000227841F79CB198C9C748B561521C0E675EE59DEF6491D528AE8868D1699411C3B96D7646AAF663305003B'),
    ('person', X'4749463839611A000C00800000FFFFFF2E7D4F2C000000001A000C00000221848FA18BEDB9E29B274A3A2DC3D9727C7D901652E41998E8D9AD5AEB9663BC1905003B');

CREATE TABLE Boards(ID INTEGER PRIMARY KEY, place TEXT, notice TEXT, putUp TEXT);
INSERT INTO Boards VALUES
    (1, 'Hire desk', 'Helmets are lent free of charge', (SELECT date(today, '-12 days') FROM Shop)),
    (2, 'Workshop', 'The second repair stand is free again', (SELECT date(today, '-3 days') FROM Shop)),
    (3, 'Staff room', 'Hand in holiday wishes by the end of the month', (SELECT date(today, '-5 days') FROM Shop));

-- Staff ------------------------------------------------------------------------------------------------------------

-- The manager has the boss 0. Mechanics have a code of two letters.
CREATE TABLE Employees(ID INTEGER PRIMARY KEY, name TEXT, role TEXT, boss INTEGER, hours INTEGER, rate REAL,
    code TEXT);
INSERT INTO Employees VALUES
    (1, 'Hale, Ruth', 'Manager', 0, 38, 29, NULL),
    (2, 'Dale, Owen', 'Head of the hire desk', 1, 38, 22, NULL),
    (3, 'Keane, Alma', 'Head of the workshop', 1, 38, 24, 'AK'),
    (4, 'Nolan, Peter', 'Head of stock', 1, 38, 22, NULL),
    (5, 'Quinn, Sara', 'Accounts', 1, 30, 23, NULL),
    (6, 'Frost, Ben', 'Hire desk', 2, 30, 16, NULL),
    (7, 'Joyce, Nina', 'Hire desk', 2, 20, 16, NULL),
    (8, 'Marsh, Bruno', 'Mechanic', 3, 38, 20, 'BM'),
    (9, 'Todd, Cora', 'Mechanic', 3, 38, 20, 'CT'),
    (10, 'Lowe, David', 'Mechanic', 3, 30, 19, 'DL'),
    (11, 'Shaw, Elsa', 'Mechanic', 3, 20, 19, 'ES'),
    (12, 'Irwin, Max', 'Apprentice', 8, 38, 11, NULL),
    (13, 'Price, Lena', 'Stock', 4, 30, 15, NULL),
    (14, 'Upton, Jack', 'Sales', 4, 38, 16, NULL);

CREATE TABLE Holidays(employee INTEGER REFERENCES Employees(ID), day TEXT, PRIMARY KEY(employee, day));
INSERT INTO Holidays
    SELECT e.ID, date(s.today, '-' || ((e.ID * 23 + k.n * 41) % 330) || ' days')
    FROM Employees e, Shop s, N k WHERE k.n < 8;

CREATE TABLE Certificates(ID INTEGER PRIMARY KEY, employee INTEGER REFERENCES Employees(ID), name TEXT, passed TEXT,
    validYears INTEGER);
INSERT INTO Certificates(employee, name, passed, validYears)
    SELECT e.ID, c.name, date(s.today, '-' || ((e.ID * 67 + c.step * 90) % 700) || ' days'), c.years
    FROM Employees e, Shop s,
        (SELECT 0 AS step, 'First aid' AS name, 2 AS years UNION ALL SELECT 1, 'Fire safety', 3
         UNION ALL SELECT 2, 'Electric drives', 5) c
    WHERE c.step = 0 OR (c.step = 1 AND e.ID % 2 = 0) OR (c.step = 2 AND e.code IS NOT NULL)
    ORDER BY e.ID, c.step;

CREATE TABLE Rota(mechanic TEXT, day TEXT, hours INTEGER, PRIMARY KEY(mechanic, day));
INSERT INTO Rota
    SELECT e.code, date(s.today, (k.n - 20) || ' days'),
        CASE WHEN strftime('%w', s.today, (k.n - 20) || ' days') = '0' THEN 0
             WHEN (k.n + e.ID) % 4 = 0 THEN 0 ELSE 6 + (k.n + e.ID) % 3 END
    FROM Employees e, Shop s, N k WHERE e.code IS NOT NULL AND k.n <= 40;

-- Bicycles ---------------------------------------------------------------------------------------------------------

CREATE TABLE Styles(ID INTEGER PRIMARY KEY, name TEXT, riders INTEGER, limitKg INTEGER, dayRate REAL);
INSERT INTO Styles VALUES
    (1, 'City bicycles', 1, 120, 14),
    (2, 'Mountain bicycles', 1, 110, 22),
    (3, 'Tandem bicycles', 2, 180, 30),
    (4, 'Cargo bicycles', 1, 220, 35);

CREATE TABLE BikeTypes(ID TEXT PRIMARY KEY, name TEXT, style INTEGER REFERENCES Styles(ID), gears INTEGER,
    price REAL);
INSERT INTO BikeTypes VALUES
    ('CTL', 'City, low step', 1, 7, 420),
    ('CTH', 'City, high bar', 1, 7, 430),
    ('CTE', 'City, electric', 1, 8, 1650),
    ('MTH', 'Mountain, hard tail', 2, 12, 780),
    ('MTF', 'Mountain, full suspension', 2, 12, 1480),
    ('TAT', 'Tandem, touring', 3, 27, 1900),
    ('TAC', 'Tandem, adult and child', 3, 18, 1750),
    ('CG2', 'Cargo, two wheels', 4, 8, 2400),
    ('CG3', 'Cargo, three wheels', 4, 5, 2150);

-- Numbers 1 to 86 are the fleet; 87 to 94 are sold off. Numbers 1 to 48 serve the everyday hires below, 49 to 53 the
-- late ones, the rest those of the last days: so no bicycle is out twice at the same time.
CREATE TABLE Bicycles(ID INTEGER PRIMARY KEY, type TEXT REFERENCES BikeTypes(ID), size TEXT, bought TEXT, price REAL,
    km INTEGER, kmOn TEXT, serviced TEXT, servicedAtKm INTEGER, salePrice REAL);
INSERT INTO Bicycles
    SELECT k.n, t.ID, substr('SML', 1 + (k.n / 9) % 3, 1), date(s.today, '-' || (250 + (k.n * 37) % 1500) || ' days'),
        t.price, 1200 + (k.n * 211) % 4000, date(s.today, '-1 day'),
        date(s.today, '-' || (5 + (k.n * 13) % 200) || ' days'),
        1200 + (k.n * 211) % 4000 - (k.n * 131) % 900, CASE WHEN k.n > 86 THEN round(t.price * 0.45) END
    FROM Shop s, N k
        JOIN (SELECT *, row_number() OVER (ORDER BY ID) - 1 AS place FROM BikeTypes) t ON t.place = k.n % 9
    WHERE k.n BETWEEN 1 AND 94;

CREATE VIEW BikeNames AS
    SELECT b.ID, b.type || printf(' %03d', b.ID) AS name, t.name AS typeName, t.style, y.name AS styleName, y.dayRate,
        b.salePrice IS NULL AS inFleet
    FROM Bicycles b JOIN BikeTypes t ON t.ID = b.type JOIN Styles y ON y.ID = t.style;

-- Customers and hires ----------------------------------------------------------------------------------------------

CREATE TABLE Clubs(ID TEXT PRIMARY KEY, name TEXT, contact TEXT, discount INTEGER, since TEXT);
INSERT INTO Clubs VALUES
    ('RIVERSID', 'Riverside Ramblers', 'Ms Carver', 10, '2019-04-01'),
    ('HILLTOPS', 'Hilltop School', 'Mr Ellis', 15, '2020-09-01'),
    ('MILLWORK', 'Mill Works Ltd', 'Ms Grant', 8, '2021-02-15'),
    ('TANDEMCC', 'Tandem Touring Club', 'Mr Vance', 12, '2018-06-01'),
    ('LANTERNS', 'Lantern Street Traders', 'Ms Young', 5, '2022-11-01');

CREATE TABLE Customers(ID INTEGER PRIMARY KEY, name TEXT, phone TEXT, since TEXT, club TEXT REFERENCES Clubs(ID));
WITH Surnames(n, name) AS (VALUES(0, 'Abbott'), (1, 'Baker'), (2, 'Carver'), (3, 'Dale'), (4, 'Ellis'), (5, 'Frost'),
        (6, 'Grant'), (7, 'Hale'), (8, 'Irwin'), (9, 'Joyce'), (10, 'Keane'), (11, 'Lowe'), (12, 'Marsh'),
        (13, 'Nolan'), (14, 'Owen'), (15, 'Price'), (16, 'Quinn'), (17, 'Reed'), (18, 'Shaw'), (19, 'Todd'),
        (20, 'Upton'), (21, 'Vance'), (22, 'Ward'), (23, 'Young')),
    FirstNames(n, name) AS (VALUES(0, 'Anna'), (1, 'Boris'), (2, 'Clara'), (3, 'Daniel'), (4, 'Emma'), (5, 'Felix'),
        (6, 'Greta'), (7, 'Henry'), (8, 'Ida'), (9, 'Jonas'), (10, 'Karin'), (11, 'Leo'), (12, 'Maria'), (13, 'Noah'),
        (14, 'Olga'), (15, 'Paul'))
INSERT INTO Customers(ID, name, phone, club)
    SELECT k.n, s.name || ', ' || f.name, printf('01632 960%03d', 200 + k.n), c.ID
    FROM N k JOIN Surnames s ON s.n = k.n % 24 JOIN FirstNames f ON f.n = (k.n * 5 + k.n / 24) % 16
        LEFT JOIN (SELECT ID, row_number() OVER (ORDER BY ID) - 1 AS place FROM Clubs) c
            ON k.n % 6 = 0 AND c.place = (k.n / 6) % 5
    WHERE k.n BETWEEN 1 AND 64;

CREATE TABLE Extras(ID INTEGER PRIMARY KEY, name TEXT, price REAL);
INSERT INTO Extras VALUES(1, 'Child seat', 5), (2, 'Pannier bags', 4), (3, 'Trailer', 9), (4, 'Picnic basket', 3),
    (5, 'Map holder', 2);

-- A hire is BOOKED before it goes out, then OUT, then BACK.
CREATE TABLE Hires(ID INTEGER PRIMARY KEY, customer INTEGER REFERENCES Customers(ID), taken TEXT, hour INTEGER,
    due TEXT, dueHour INTEGER, back TEXT, status TEXT, deposit REAL, depositPaid INTEGER);
-- One hire a day until four days ago, some of them never brought back; then six that are due back today, two on each
-- of the last two days, and twelve that go out today, the last four of them to new customers.
WITH Plan AS (
    SELECT k.n, s.today,
        date(s.today, '-' || CASE WHEN k.n <= 176 THEN 180 - k.n WHEN k.n <= 182 THEN 3 WHEN k.n <= 184 THEN 2
                                  WHEN k.n <= 186 THEN 1 ELSE 0 END || ' days') AS taken,
        CASE WHEN k.n <= 176 THEN 1 + k.n % 5 WHEN k.n <= 182 THEN 3 ELSE 2 + k.n % 3 END AS days,
        k.n % 9 = 0 AND k.n BETWEEN 130 AND 172 AS isLate
    FROM N k, Shop s WHERE k.n BETWEEN 1 AND 198),
  Dated AS (SELECT *, date(taken, '+' || days || ' days') AS due FROM Plan)
INSERT INTO Hires
    SELECT 1000 + n, CASE WHEN n <= 194 THEN 1 + (n * 7) % 60 ELSE n - 134 END, taken, 9 + n % 8, due, 10 + n % 7,
        CASE WHEN due < today AND NOT isLate THEN due END,
        CASE WHEN taken = today THEN 'BOOKED' WHEN due < today AND NOT isLate THEN 'BACK' ELSE 'OUT' END,
        50 + 10 * (n % 6), n % 4 <> 0
    FROM Dated;

CREATE TABLE HireLines(ID INTEGER PRIMARY KEY, hire INTEGER REFERENCES Hires(ID),
    bicycle INTEGER REFERENCES Bicycles(ID), extra INTEGER REFERENCES Extras(ID), quantity INTEGER, charge REAL);
WITH Lines AS (
    SELECT h.ID AS hire, h.ID - 1000 AS n, k.n AS k, julianday(h.due) - julianday(h.taken) AS days,
        h.status = 'OUT' AND h.due < s.today AS isLate
    FROM Hires h, Shop s, N k WHERE k.n <= 2),
  Bikes AS (
    SELECT hire, n, k, days,
        CASE WHEN isLate THEN 49 + (n / 9) % 5 WHEN n <= 176 THEN 1 + (n * 5 + k * 17) % 48
             WHEN k = 0 THEN 54 + n - 177 ELSE 76 + (n - 177) / 2 END AS bicycle
    FROM Lines
    WHERE k = 0 OR (NOT isLate AND k <= CASE WHEN n <= 176 THEN n % 3 ELSE n % 2 END))
INSERT INTO HireLines(hire, bicycle, quantity, charge)
    SELECT p.hire, p.bicycle, 1, b.dayRate * p.days FROM Bikes p JOIN BikeNames b ON b.ID = p.bicycle
    ORDER BY p.hire, p.k;
INSERT INTO HireLines(hire, extra, quantity, charge)
    SELECT h.ID, e.ID, 1 + (h.ID / 2) % 2, e.price * (1 + (h.ID / 2) % 2)
    FROM Hires h JOIN Extras e ON e.ID = 1 + (h.ID / 2) % 5 WHERE h.ID % 2 = 0 ORDER BY h.ID;

UPDATE Customers SET since = (SELECT min(taken) FROM Hires WHERE customer = Customers.ID);

-- A charge for each day that a hire is late; spW_AddLateCharges adds those of the day.
CREATE TABLE LateCharges(ID INTEGER PRIMARY KEY, hire INTEGER REFERENCES Hires(ID), day TEXT, amount REAL,
    UNIQUE(hire, day));
INSERT INTO LateCharges(hire, day, amount)
    SELECT h.ID, date(h.due, '+' || k.n || ' days'), 10
    FROM Hires h, Shop s, N k
    WHERE h.status = 'OUT' AND k.n >= 1 AND date(h.due, '+' || k.n || ' days') < s.today
    ORDER BY h.ID, k.n;

CREATE TABLE Cafes(ID INTEGER PRIMARY KEY, name TEXT);
INSERT INTO Cafes VALUES(1, 'Lock House'), (2, 'The Old Ferry'), (3, 'Windmill Kitchen'), (4, 'Station Buffet');

CREATE TABLE Vouchers(ID INTEGER PRIMARY KEY, cafe INTEGER REFERENCES Cafes(ID), hire INTEGER REFERENCES Hires(ID),
    day TEXT, value REAL);
INSERT INTO Vouchers(cafe, hire, day, value)
    SELECT 1 + (ID / 2) % 4, ID, taken, 4 + ID % 3 FROM Hires WHERE ID % 2 = 0 ORDER BY ID;

CREATE VIEW HireSums AS
    SELECT h.ID, c.name AS customer, h.customer AS customerID, h.taken, h.hour, h.due, h.dueHour, h.status, h.deposit,
        h.depositPaid, (SELECT count(*) FROM HireLines l WHERE l.hire = h.ID AND l.bicycle IS NOT NULL) AS bicycles,
        (SELECT sum(l.charge) FROM HireLines l WHERE l.hire = h.ID) AS charge,
        (SELECT ifnull(sum(a.amount), 0) FROM LateCharges a WHERE a.hire = h.ID) AS lateCharge
    FROM Hires h JOIN Customers c ON c.ID = h.customer;

-- Stock ------------------------------------------------------------------------------------------------------------

CREATE TABLE Suppliers(ID TEXT PRIMARY KEY, name TEXT, town TEXT, phone TEXT);
INSERT INTO Suppliers VALUES
    ('WHEELS', 'Rim and Spoke', 'Northport', '01632 960301'),
    ('BRAKES', 'Stopwell', 'Eastham', '01632 960302'),
    ('CHAINS', 'Link Brothers', 'Weston', '01632 960303'),
    ('LIGHTS', 'Nightway', 'Southgate', '01632 960304'),
    ('FRAMES', 'Tube and Lug', 'Middleton', '01632 960305'),
    ('SUNDRY', 'Workshop Supplies', 'Northport', '01632 960306');

-- The parts are trees: inside is the part that holds this one, 0 for an assembly; quantity is how many it holds.
CREATE TABLE Parts(ID INTEGER PRIMARY KEY, name TEXT, inside INTEGER, quantity INTEGER,
    supplier TEXT REFERENCES Suppliers(ID), price REAL, room TEXT, shelf TEXT, stock INTEGER, minimum INTEGER,
    toOrder INTEGER DEFAULT 0);
INSERT INTO Parts(ID, name, inside, quantity, supplier, price, room, shelf, stock, minimum) VALUES
    (1, 'Front wheel', 0, 1, 'WHEELS', 48, 'Cellar', 'C1', 9, 6),
    (2, 'Rear wheel', 0, 1, 'WHEELS', 64, 'Cellar', 'C1', 4, 6),
    (3, 'Brake set', 0, 1, 'BRAKES', 39, 'Workshop', 'W2', 12, 8),
    (4, 'Drive', 0, 1, 'CHAINS', 88, 'Workshop', 'W3', 3, 4),
    (5, 'Lighting set', 0, 1, 'LIGHTS', 31, 'Workshop', 'W1', 15, 10),
    (6, 'Fork', 0, 1, 'FRAMES', 72, 'Cellar', 'C2', 5, 4),
    (11, 'Front rim', 1, 1, 'WHEELS', 21, 'Cellar', 'C1', 14, 8),
    (12, 'Front hub', 1, 1, 'WHEELS', 12, 'Cellar', 'C1', 11, 8),
    (13, 'Front spoke', 1, 32, 'WHEELS', 0.4, 'Cellar', 'C3', 260, 300),
    (14, 'Front tyre', 1, 1, 'SUNDRY', 16, 'Cellar', 'C2', 22, 20),
    (15, 'Front tube', 1, 1, 'SUNDRY', 5, 'Cellar', 'C2', 18, 30),
    (16, 'Front axle', 12, 1, 'WHEELS', 4, 'Workshop', 'W4', 25, 10),
    (17, 'Front bearing', 12, 2, 'WHEELS', 3, 'Workshop', 'W4', 36, 20),
    (18, 'Bearing ball', 17, 9, 'SUNDRY', 0.1, 'Workshop', 'W4', 800, 500),
    (21, 'Rear rim', 2, 1, 'WHEELS', 23, 'Cellar', 'C1', 10, 8),
    (22, 'Gear hub', 2, 1, 'CHAINS', 59, 'Cellar', 'C1', 2, 3),
    (23, 'Rear spoke', 2, 36, 'WHEELS', 0.4, 'Cellar', 'C3', 410, 300),
    (24, 'Rear tyre', 2, 1, 'SUNDRY', 17, 'Cellar', 'C2', 26, 20),
    (25, 'Gear cable', 22, 1, 'CHAINS', 4, 'Workshop', 'W3', 17, 15),
    (26, 'Shift ring', 22, 1, 'CHAINS', 7, 'Workshop', 'W3', 8, 5),
    (31, 'Brake lever', 3, 2, 'BRAKES', 8, 'Workshop', 'W2', 19, 10),
    (32, 'Brake cable', 3, 2, 'BRAKES', 3, 'Workshop', 'W2', 27, 30),
    (33, 'Brake caliper', 3, 2, 'BRAKES', 14, 'Workshop', 'W2', 13, 8),
    (34, 'Brake pad', 33, 2, 'BRAKES', 4, 'Workshop', 'W2', 31, 40),
    (41, 'Chain', 4, 1, 'CHAINS', 13, 'Workshop', 'W3', 16, 15),
    (42, 'Crank set', 4, 1, 'CHAINS', 36, 'Workshop', 'W3', 6, 5),
    (43, 'Bottom bracket', 4, 1, 'FRAMES', 18, 'Workshop', 'W3', 9, 6),
    (44, 'Sprocket', 4, 1, 'CHAINS', 9, 'Workshop', 'W3', 12, 10),
    (45, 'Chain ring', 42, 1, 'CHAINS', 15, 'Workshop', 'W3', 7, 6),
    (46, 'Pedal', 42, 2, 'FRAMES', 9, 'Workshop', 'W3', 14, 16),
    (51, 'Head lamp', 5, 1, 'LIGHTS', 14, 'Workshop', 'W1', 21, 10),
    (52, 'Tail lamp', 5, 1, 'LIGHTS', 8, 'Workshop', 'W1', 24, 10),
    (53, 'Lamp cable', 5, 1, 'LIGHTS', 2, 'Workshop', 'W1', 30, 15),
    (61, 'Fork crown', 6, 1, 'FRAMES', 19, 'Cellar', 'C2', 6, 4),
    (62, 'Head bearing', 6, 1, 'FRAMES', 11, 'Cellar', 'C2', 8, 6);

CREATE TABLE PartPrices(part INTEGER REFERENCES Parts(ID), year INTEGER, price REAL, PRIMARY KEY(part, year));
INSERT INTO PartPrices
    SELECT p.ID, strftime('%Y', s.today) - k.n, round(p.price * (1 - 0.04 * k.n), 2)
    FROM Parts p, Shop s, N k WHERE k.n <= 4;

CREATE TABLE Categories(ID INTEGER PRIMARY KEY, name TEXT, above INTEGER);
INSERT INTO Categories VALUES(1, 'Clothing', 0), (2, 'Accessories', 0), (3, 'Care', 0), (4, 'Helmets', 1),
    (5, 'Gloves', 1), (6, 'Rain wear', 1), (7, 'Bags', 2), (8, 'Locks', 2), (9, 'Children''s helmets', 4),
    (10, 'Adults'' helmets', 4), (11, 'Cleaning', 3), (12, 'Repair kits', 3);

CREATE TABLE Goods(ID INTEGER PRIMARY KEY, name TEXT, category INTEGER REFERENCES Categories(ID), price REAL,
    room TEXT, shelf TEXT, stock INTEGER);
INSERT INTO Goods VALUES
    (1, 'Helmet Ladybird', 9, 29, 'Shop', 'S1', 6), (2, 'Helmet Comet', 9, 34, 'Shop', 'S1', 4),
    (3, 'Helmet Town', 10, 49, 'Shop', 'S1', 8), (4, 'Helmet Trail', 10, 79, 'Shop', 'S1', 5),
    (5, 'Summer gloves', 5, 18, 'Shop', 'S2', 14), (6, 'Winter gloves', 5, 32, 'Shop', 'S2', 9),
    (7, 'Rain cape', 6, 45, 'Shop', 'S2', 7), (8, 'Overshoes', 6, 24, 'Shop', 'S2', 10),
    (9, 'Pannier bag', 7, 55, 'Shop', 'S3', 8), (10, 'Handlebar bag', 7, 38, 'Shop', 'S3', 6),
    (11, 'Chain lock', 8, 42, 'Shop', 'S3', 12), (12, 'Folding lock', 8, 69, 'Shop', 'S3', 7),
    (13, 'Chain cleaner', 11, 12, 'Shop', 'S4', 20), (14, 'Polish', 11, 8, 'Shop', 'S4', 16),
    (15, 'Patch kit', 12, 5, 'Shop', 'S4', 40), (16, 'Pocket tool', 12, 22, 'Shop', 'S4', 11);

-- Every category with each category in its branch, itself included; 0 holds all of them.
CREATE VIEW CategoryBranches(top, category) AS
    WITH RECURSIVE Branches(top, category) AS (
        SELECT ID, ID FROM Categories UNION ALL SELECT 0, ID FROM Categories WHERE above = 0
        UNION ALL SELECT b.top, c.ID FROM Branches b JOIN Categories c ON c.above = b.category)
    SELECT top, category FROM Branches;

CREATE VIEW Stored AS
    SELECT room, shelf, stock, stock * price AS value FROM Parts UNION ALL
    SELECT room, shelf, stock, stock * price FROM Goods;

CREATE TABLE Orders(ID INTEGER PRIMARY KEY, supplier TEXT REFERENCES Suppliers(ID), day TEXT, paid INTEGER);
INSERT INTO Orders
    SELECT 4000 + k.n, u.ID, date(s.today, '-' || ((36 - k.n) * 10) || ' days'), k.n < 30
    FROM Shop s, N k
        JOIN (SELECT ID, row_number() OVER (ORDER BY ID) - 1 AS place FROM Suppliers) u ON u.place = k.n % 6
    WHERE k.n BETWEEN 1 AND 36;

CREATE TABLE OrderLines(ID INTEGER PRIMARY KEY, purchase INTEGER REFERENCES Orders(ID),
    part INTEGER REFERENCES Parts(ID), quantity INTEGER, price REAL);
INSERT INTO OrderLines(purchase, part, quantity, price)
    SELECT o.ID, p.ID, 5 + (o.ID + k.n * 7) % 20, p.price
    FROM Orders o JOIN N k ON k.n <= 1
        JOIN (SELECT *, row_number() OVER (PARTITION BY supplier ORDER BY ID) - 1 AS place,
                  count(*) OVER (PARTITION BY supplier) AS places FROM Parts) p
            ON p.supplier = o.supplier AND p.place = (o.ID / 6 + k.n) % p.places
    ORDER BY o.ID, k.n;

-- Workshop ---------------------------------------------------------------------------------------------------------

-- A job is OPEN, then DONE, and CLOSED when it is paid.
CREATE TABLE RepairJobs(ID INTEGER PRIMARY KEY, customer INTEGER REFERENCES Customers(ID), bicycle TEXT,
    mechanic TEXT, taken TEXT, status TEXT, paid INTEGER);
INSERT INTO RepairJobs
    SELECT 3000 + k.n, 1 + (k.n * 11) % 64,
        CASE k.n % 4 WHEN 0 THEN 'Grey city bicycle' WHEN 1 THEN 'Red touring bicycle' WHEN 2 THEN 'Folding bicycle'
             ELSE 'Blue mountain bicycle' END,
        m.code, date(s.today, '-' || ((61 - k.n) * 2 - k.n % 3 / 2) || ' days'),
        CASE WHEN k.n <= 36 THEN 'CLOSED' WHEN k.n <= 48 THEN 'DONE' ELSE 'OPEN' END,
        k.n <= 36 OR (k.n <= 48 AND k.n % 3 = 0)
    FROM Shop s, N k JOIN (SELECT code, row_number() OVER (ORDER BY ID) - 1 AS place FROM Employees
        WHERE code IS NOT NULL) m ON m.place = k.n % 5
    WHERE k.n BETWEEN 1 AND 60;

CREATE TABLE Tasks(ID INTEGER PRIMARY KEY, job INTEGER REFERENCES RepairJobs(ID), name TEXT, hours REAL);
CREATE TABLE TaskParts(ID INTEGER PRIMARY KEY, task INTEGER REFERENCES Tasks(ID), part INTEGER REFERENCES Parts(ID),
    quantity INTEGER);
CREATE TEMP TABLE TaskKinds(n INTEGER, name TEXT, hours REAL, part INTEGER, quantity INTEGER);
INSERT INTO TaskKinds VALUES(0, 'Replace the brake pads', 0.5, 34, 4), (1, 'Fit a new chain', 0.5, 41, 1),
    (2, 'True the rear wheel', 1, 23, 3), (3, 'Repair a puncture', 0.5, 15, 1), (4, 'Replace the gear cable', 1, 25, 1),
    (5, 'Fit a head lamp', 0.5, 51, 1), (6, 'Overhaul the front hub', 1.5, 17, 2),
    (7, 'Replace the brake cables', 1, 32, 2);
INSERT INTO Tasks
    SELECT (j.ID - 3000) * 10 + k.n, j.ID, t.name, t.hours
    FROM RepairJobs j JOIN N k ON k.n <= j.ID % 3 JOIN TaskKinds t ON t.n = (j.ID + k.n * 3) % 8;
INSERT INTO TaskParts(task, part, quantity)
    SELECT t.ID AS task, k.part, k.quantity FROM Tasks t JOIN TaskKinds k ON k.name = t.name
    UNION ALL SELECT t.ID, 53, 1 FROM Tasks t WHERE t.name = 'Fit a head lamp'
    UNION ALL SELECT t.ID, 18, 18 FROM Tasks t WHERE t.name = 'Overhaul the front hub'
    ORDER BY task, part;
DROP TABLE TaskKinds;

CREATE TABLE JobPictures(ID INTEGER PRIMARY KEY, job INTEGER REFERENCES RepairJobs(ID), moment TEXT);
INSERT INTO JobPictures(job, moment)
    SELECT j.ID, m.moment FROM RepairJobs j, (SELECT 'before' AS moment UNION ALL SELECT 'after') m
    WHERE j.status <> 'OPEN' ORDER BY j.ID, m.moment DESC;

CREATE VIEW TaskSums AS
    SELECT t.ID, t.job, t.name, t.hours, t.hours * s.hourlyRate AS labour,
        (SELECT ifnull(sum(p.price * u.quantity), 0) FROM TaskParts u JOIN Parts p ON p.ID = u.part
         WHERE u.task = t.ID) AS parts
    FROM Tasks t, Shop s;
CREATE VIEW JobSums AS
    SELECT j.ID, c.name AS customer, j.customer AS customerID, j.bicycle, j.mechanic, j.taken, j.status, j.paid,
        sum(t.hours) AS hours, sum(t.labour) AS labour, sum(t.parts) AS parts
    FROM RepairJobs j JOIN Customers c ON c.ID = j.customer JOIN TaskSums t ON t.job = j.ID GROUP BY j.ID, c.ID;

CREATE TABLE Claims(ID INTEGER PRIMARY KEY, supplier TEXT REFERENCES Suppliers(ID), subject TEXT, opened TEXT);
CREATE TABLE ClaimLetters(ID INTEGER PRIMARY KEY, claim INTEGER REFERENCES Claims(ID), day TEXT, subject TEXT);
INSERT INTO Claims
    SELECT c.n, c.supplier, c.subject, date(s.today, '-' || c.age || ' days')
    FROM Shop s, (SELECT 1 AS n, 'WHEELS' AS supplier, 'Rims with cracks' AS subject, 70 AS age
        UNION ALL SELECT 2, 'LIGHTS', 'Head lamps that let in water', 45
        UNION ALL SELECT 3, 'CHAINS', 'Gear hub slips', 20) c;
INSERT INTO ClaimLetters(claim, day, subject)
    SELECT c.ID, date(c.opened, '+' || (k.n * 9) || ' days'),
        CASE k.n WHEN 0 THEN 'Our claim' WHEN 1 THEN 'Their answer' ELSE 'Our reply' END
    FROM Claims c JOIN N k ON k.n < 4 - c.ID ORDER BY c.ID, k.n;

-- Money ------------------------------------------------------------------------------------------------------------

-- Three receipts on each of the last ten days, before that on every eighth day.
CREATE TABLE Receipts(ID INTEGER PRIMARY KEY, day TEXT, section INTEGER REFERENCES Sections(ID), paidBy TEXT);
CREATE TABLE ReceiptLines(ID INTEGER PRIMARY KEY, receipt INTEGER REFERENCES Receipts(ID), what TEXT,
    goods INTEGER REFERENCES Goods(ID), quantity INTEGER, amount REAL);
INSERT INTO Receipts
    SELECT 5000 + (109 - k.n) * 3 + c.ID,
        date(s.today, '-' || CASE WHEN k.n < 10 THEN k.n ELSE 10 + (k.n - 10) * 8 END || ' days'), c.ID,
        CASE (k.n + c.ID) % 3 WHEN 0 THEN 'Cash' WHEN 1 THEN 'Card' ELSE 'Voucher' END
    FROM N k, Shop s, Sections c WHERE k.n < 110 ORDER BY 1;
INSERT INTO ReceiptLines(receipt, what, quantity, amount)
    SELECT ID, CASE section WHEN 1 THEN 'Hire' ELSE 'Repair' END, 1,
        CASE section WHEN 1 THEN 28 + ID % 7 * 14 ELSE 18 + ID % 11 * 9 END
    FROM Receipts WHERE section < 3 ORDER BY ID;
INSERT INTO ReceiptLines(receipt, what, goods, quantity, amount)
    SELECT r.ID, g.name, g.ID, 1 + (r.ID + k.n) % 2, g.price * (1 + (r.ID + k.n) % 2)
    FROM Receipts r JOIN N k ON k.n <= 1 JOIN Goods g ON g.ID = 1 + (r.ID / 3 + k.n * 5) % 16 WHERE r.section = 3
    ORDER BY r.ID, k.n;

CREATE VIEW Takings AS
    SELECT r.day, r.section, r.ID AS receipt, r.paidBy, l.what, l.goods, l.quantity, l.amount
    FROM Receipts r JOIN ReceiptLines l ON l.receipt = r.ID;

CREATE TABLE Costs(ID INTEGER PRIMARY KEY, section INTEGER REFERENCES Sections(ID), day TEXT, amount REAL);
INSERT INTO Costs(section, day, amount)
    SELECT c.ID, date(s.today, 'start of month', '-' || k.n || ' months'), 90 + (c.ID * 40 + k.n * 7) % 60
    FROM Sections c, Shop s, N k WHERE k.n < 24 ORDER BY c.ID, k.n;

-- The till book has a line for each day that was closed.
CREATE TABLE TillBook(day TEXT PRIMARY KEY, receipts INTEGER, amount REAL);
INSERT INTO TillBook
    SELECT day, count(DISTINCT receipt), sum(amount) FROM Takings WHERE day < (SELECT today FROM Shop) GROUP BY day;

CREATE TABLE Invoices(ID INTEGER PRIMARY KEY, customer INTEGER REFERENCES Customers(ID), day TEXT, due TEXT,
    status TEXT, paid REAL);
CREATE TABLE InvoiceLines(ID INTEGER PRIMARY KEY, invoice INTEGER REFERENCES Invoices(ID), item TEXT,
    quantity INTEGER, price REAL);
CREATE TABLE Reminders(ID INTEGER PRIMARY KEY, invoice INTEGER REFERENCES Invoices(ID), day TEXT);
INSERT INTO Invoices
    SELECT 7000 + k.n, 1 + (k.n * 13) % 60, date(s.today, '-' || ((21 - k.n) * 8) || ' days'),
        date(s.today, '-' || ((21 - k.n) * 8) || ' days', '+14 days'),
        CASE WHEN k.n % 2 = 0 THEN 'PAID' ELSE 'UNPAID' END, 0
    FROM N k, Shop s WHERE k.n BETWEEN 1 AND 20;
INSERT INTO InvoiceLines(invoice, item, quantity, price)
    SELECT i.ID, CASE k.n WHEN 0 THEN 'Hire, days' ELSE 'Extras' END, 2 + (i.ID + k.n) % 6,
        CASE k.n WHEN 0 THEN 22 ELSE 4 END
    FROM Invoices i JOIN N k ON k.n <= 1 ORDER BY i.ID, k.n;
UPDATE Invoices SET paid = (SELECT sum(quantity * price) FROM InvoiceLines WHERE invoice = Invoices.ID)
    * CASE WHEN status = 'PAID' THEN 1 WHEN ID % 3 = 0 THEN 0.5 ELSE 0 END;
INSERT INTO Reminders(invoice, day)
    SELECT ID, date(due, '+16 days') FROM Invoices WHERE status = 'UNPAID' AND ID <= 7005 ORDER BY ID;

CREATE VIEW InvoiceSums AS
    SELECT i.ID, c.name AS customer, i.day, i.due, i.status, i.paid, sum(l.quantity * l.price) AS amount
    FROM Invoices i JOIN Customers c ON c.ID = i.customer JOIN InvoiceLines l ON l.invoice = i.ID
    GROUP BY i.ID, c.ID;

CREATE INDEX LinesOfHire ON HireLines(hire);
CREATE INDEX LinesOfReceipt ON ReceiptLines(receipt);
CREATE INDEX TasksOfJob ON Tasks(job);
CREATE INDEX PartsOfTask ON TaskParts(task);

DROP TABLE N;

-- What queries share -----------------------------------------------------------------------------------------------

-- The shop's day, also as a text in the form in which queries are given it.
CREATE VIEW ShopDay(today, todayText) AS
    SELECT today, substr(today, 9) || '-' ||
        substr('JanFebMarAprMayJunJulAugSepOctNovDec', 3 * substr(today, 6, 2) - 2, 3) || '-' || substr(today, 1, 4)
    FROM Shop;

-- The day that was given as a text.
CREATE VIEW GivenDay(day) AS
    SELECT substr(parameter, 8) || printf('-%02d-',
        (instr('JanFebMarAprMayJunJulAugSepOctNovDec', substr(parameter, 4, 3)) + 2) / 3) || substr(parameter, 1, 2)
    FROM Given;

-- A key that is given as a constant at the top of a tree and as a parameter below it.
CREATE VIEW GivenKey(ID) AS SELECT coalesce(constant, parameter, 0) FROM Given;

CREATE VIEW OpenHires AS SELECT * FROM HireSums WHERE status <> 'BACK';

CREATE VIEW Months(number, name) AS
    WITH RECURSIVE M(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM M WHERE n < 12)
    SELECT printf('%02d', n), substr('JanFebMarAprMayJunJulAugSepOctNovDec', 3 * n - 2, 3) FROM M;

-- The queries of the tree: ID and description ----------------------------------------------------------------------

CREATE VIEW spG_HiresGoingOut AS
    SELECT h.ID, h.customer || ' at ' || h.hour || ':00' AS Hire FROM HireSums h, GivenDay g
    WHERE h.taken = g.day ORDER BY h.hour, h.ID;

CREATE VIEW spG_HiresDueBack AS
    SELECT h.ID, h.customer || ' at ' || h.dueHour || ':00' AS Hire FROM OpenHires h, GivenDay g
    WHERE h.due = g.day ORDER BY h.dueHour, h.ID;

CREATE VIEW spG_HiresLate AS
    SELECT h.ID, h.customer || ', due ' || h.due AS Hire FROM OpenHires h, GivenDay g, Given
    WHERE julianday(g.day) - julianday(h.due) > Given.constant ORDER BY h.due, h.ID;

CREATE VIEW spG_BikeTypes AS SELECT ID, name AS Type FROM BikeTypes ORDER BY name;

CREATE VIEW spG_BikesOfType AS
    SELECT b.ID, n.name AS Bicycle FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Given
    WHERE b.type = Given.parameter AND n.inFleet ORDER BY b.ID;

CREATE VIEW spG_RepairJobs AS
    SELECT j.ID, j.customer || ': ' || j.bicycle AS Job FROM JobSums j, Given WHERE j.status = Given.constant
    ORDER BY j.taken, j.ID;

CREATE VIEW spG_TasksOfJob AS
    SELECT t.ID, t.name AS Task FROM Tasks t, Given WHERE t.job = Given.parameter ORDER BY t.ID;

CREATE VIEW spG_Mechanics AS SELECT code AS ID, name AS Mechanic FROM Employees WHERE code IS NOT NULL ORDER BY name;

CREATE VIEW spG_JobsOfMechanic AS
    SELECT j.ID, j.taken || ' ' || j.bicycle AS Job FROM RepairJobs j, Given WHERE j.mechanic = Given.parameter
    ORDER BY j.taken DESC, j.ID;

CREATE VIEW spG_PurchaseYears AS
    SELECT DISTINCT strftime('%Y', bought) AS ID, strftime('%Y', bought) AS Year FROM Bicycles ORDER BY 1;

CREATE VIEW spG_PartsBelow AS
    SELECT p.ID, p.name AS Part FROM Parts p, GivenKey g WHERE p.inside = g.ID ORDER BY p.name;

CREATE VIEW spG_CategoriesBelow AS
    SELECT c.ID, c.name AS Category FROM Categories c, GivenKey g WHERE c.above = g.ID ORDER BY c.name;

CREATE VIEW spG_Suppliers AS SELECT ID, name AS Supplier FROM Suppliers ORDER BY name;

CREATE VIEW spG_PartsOfSupplier AS
    SELECT p.ID, p.name AS Part FROM Parts p, Given WHERE p.supplier = Given.parameter ORDER BY p.name;

CREATE VIEW spG_Initials AS
    SELECT DISTINCT unicode(name) AS ID, substr(name, 1, 1) AS Initial FROM Customers ORDER BY 1;

CREATE VIEW spG_CustomersByInitial AS
    SELECT c.ID, c.name AS Customer FROM Customers c, Given WHERE substr(c.name, 1, 1) = Given.parameter
    ORDER BY c.name;

CREATE VIEW spG_HiresOfCustomer AS
    SELECT h.ID, h.taken || ' to ' || h.due AS Hire FROM Hires h, Given WHERE h.customer = Given.parameter
    ORDER BY h.taken DESC, h.ID;

CREATE VIEW spG_Clubs AS SELECT ID, name AS Club FROM Clubs ORDER BY name;

CREATE VIEW spG_MembersOfClub AS
    SELECT c.ID, c.name AS Customer FROM Customers c, Given WHERE c.club = Given.parameter ORDER BY c.name;

-- The time line: the key of a year is 2026, of a month 202603, of a day 20260305.
CREATE VIEW spG_TakingsYears AS
    SELECT DISTINCT strftime('%Y', day) AS ID, strftime('%Y', day) AS Year FROM Receipts ORDER BY 1 DESC;

CREATE VIEW spG_MonthsOfYear AS
    SELECT DISTINCT strftime('%Y%m', r.day) AS ID, m.name || strftime(' %Y', r.day) AS Month
    FROM Receipts r JOIN Months m ON m.number = strftime('%m', r.day), Given
    WHERE strftime('%Y', r.day) = CAST(Given.parameter AS TEXT) ORDER BY 1;

CREATE VIEW spG_DaysOfMonth AS
    SELECT DISTINCT strftime('%Y%m%d', day) AS ID, day AS Day FROM Receipts, Given
    WHERE strftime('%Y%m', day) = CAST(Given.parameter AS TEXT) ORDER BY 1;

CREATE VIEW spG_Invoices AS
    SELECT i.ID, i.customer || ', ' || i.day AS Invoice FROM InvoiceSums i, Given WHERE i.status = Given.constant
    ORDER BY i.day;

CREATE VIEW spG_StaffBelow AS
    SELECT e.ID, e.name AS Name FROM Employees e, GivenKey g WHERE e.boss = g.ID ORDER BY e.name;

-- The queries of the report pages: the hire desk -------------------------------------------------------------------

CREATE VIEW spW_ShopFront AS
    SELECT s.ID, s.name AS Shop, s.address AS Address, s.phone AS Phone, p.image AS IMGShop
    FROM Shop s JOIN Pictures p ON p.name = 'shop';

-- A cross table of the week that ends on the day.
CREATE VIEW spW_WeekSummary AS
    WITH RECURSIVE Week(day, last) AS (SELECT date(day, '-6 days'), day FROM GivenDay
        UNION ALL SELECT date(day, '+1 day'), last FROM Week WHERE day < last)
    SELECT w.day AS ID, (SELECT count(*) FROM Hires WHERE taken = w.day) AS "Hires out",
        (SELECT count(*) FROM Hires WHERE back = w.day) AS "Hires back",
        (SELECT count(*) FROM RepairJobs WHERE taken = w.day) AS "Jobs taken in",
        (SELECT ifnull(sum(amount), 0) FROM Takings WHERE day = w.day) AS Takings
    FROM Week w ORDER BY w.day;

CREATE VIEW spW_HireRates AS
    SELECT s.ID, s.hours AS "Opening hours", (SELECT dayRate FROM Styles WHERE ID = 1) AS "City, a day",
        (SELECT dayRate FROM Styles WHERE ID = 2) AS "Mountain, a day",
        (SELECT dayRate FROM Styles WHERE ID = 3) AS "Tandem, a day",
        (SELECT dayRate FROM Styles WHERE ID = 4) AS "Cargo, a day"
    FROM Shop s;

CREATE VIEW spW_DaySheet AS
    SELECT 1 AS ID, g.day AS Day, (SELECT count(*) FROM Hires WHERE taken = g.day) AS "Going out",
        (SELECT count(*) FROM OpenHires WHERE due = g.day) AS "Due back",
        (SELECT count(*) FROM OpenHires WHERE due < g.day) AS Late
    FROM GivenDay g;

CREATE VIEW spW_OutAndBackByHour AS
    WITH RECURSIVE Hours(hour) AS (SELECT 9 UNION ALL SELECT hour + 1 FROM Hours WHERE hour < 17)
    SELECT hour AS ID, hour || ':00' AS Hour,
        (SELECT ifnull(sum(bicycles), 0) FROM HireSums h WHERE h.taken = g.day AND h.hour = Hours.hour) AS Out,
        (SELECT ifnull(sum(bicycles), 0) FROM OpenHires h WHERE h.due = g.day AND h.dueHour = Hours.hour) AS Back
    FROM Hours, GivenDay g ORDER BY ID;

CREATE VIEW spW_HiresGoingOut AS
    SELECT h.ID, h.customer AS Customer, h.hour || ':00' AS Time, h.due AS "Due back", h.bicycles AS Bicycles,
        h.deposit AS Deposit
    FROM HireSums h, GivenDay g WHERE h.taken = g.day ORDER BY h.hour, h.ID;

CREATE VIEW spW_HireHead AS
    SELECT h.ID, h.customer AS Customer, h.taken AS "Goes out", h.due AS "Due back", h.status AS Status,
        h.deposit AS Deposit
    FROM HireSums h, Given WHERE h.ID = Given.parameter;

CREATE VIEW spW_HireLines AS
    SELECT l.ID, coalesce(b.name, e.name) AS Item, coalesce(b.typeName, 'Extra') AS Kind, l.quantity AS Quantity,
        l.charge AS Charge
    FROM HireLines l LEFT JOIN BikeNames b ON b.ID = l.bicycle LEFT JOIN Extras e ON e.ID = l.extra, Given
    WHERE l.hire = Given.parameter ORDER BY l.ID;

CREATE VIEW spW_HiresDueBack AS
    SELECT h.ID, h.customer AS Customer, h.dueHour || ':00' AS Time, h.taken AS "Went out", h.bicycles AS Bicycles
    FROM OpenHires h, GivenDay g WHERE h.due = g.day ORDER BY h.dueHour, h.ID;

CREATE VIEW spW_HireCharges AS
    SELECT h.ID, c.what AS "For", c.charge AS Charge, c.paid AS Paid
    FROM Given JOIN Hires h ON h.ID = Given.parameter JOIN (
        SELECT 1 AS place, ID AS hire, 'Deposit' AS what, deposit AS charge, deposit * depositPaid AS paid FROM Hires
        UNION ALL SELECT 2, ID, 'Bicycles and extras', charge, 0 FROM HireSums
        UNION ALL SELECT 3, ID, 'Late charges', lateCharge, 0 FROM HireSums WHERE lateCharge > 0) c ON c.hire = h.ID
    ORDER BY c.place;

CREATE VIEW spW_HiresLate AS
    SELECT h.ID, h.customer AS Customer, c.phone AS Phone, h.due AS "Due back",
        CAST(julianday(g.day) - julianday(h.due) AS INTEGER) AS "Days late", h.bicycles AS Bicycles,
        h.lateCharge AS "Late charges"
    FROM OpenHires h JOIN Customers c ON c.ID = h.customerID, GivenDay g, Given
    WHERE julianday(g.day) - julianday(h.due) > Given.constant ORDER BY h.due, h.ID;

CREATE VIEW spW_HireCustomer AS
    SELECT c.ID, c.name AS Customer, c.phone AS Phone, h.due AS "Due back"
    FROM Hires h JOIN Customers c ON c.ID = h.customer, Given WHERE h.ID = Given.parameter;

CREATE VIEW spW_LateCharges AS
    SELECT l.ID, l.day AS Day, l.amount AS Charge FROM LateCharges l, Given WHERE l.hire = Given.parameter
    ORDER BY l.day;

CREATE VIEW spW_BikesPerType AS
    SELECT t.ID, t.name AS Type, count(*) AS Bicycles, sum(b.price) AS "Value when new"
    FROM BikeTypes t JOIN Bicycles b ON b.type = t.ID WHERE b.salePrice IS NULL GROUP BY t.ID ORDER BY t.name;

CREATE VIEW spW_TypeHead AS
    SELECT t.ID, t.name AS Type, y.name AS Style, t.gears AS Gears, t.price AS "Price when new",
        y.dayRate AS "Rate a day"
    FROM BikeTypes t JOIN Styles y ON y.ID = t.style, Given WHERE t.ID = Given.parameter;

CREATE VIEW spW_TypePictures AS
    SELECT v.place AS ID, v.name AS View, s.pictureFolder || 'types/' || t.ID || '-' || v.place || '.jpg' AS FILEType
    FROM BikeTypes t, Shop s, Given, (SELECT 1 AS place, 'Left side' AS name UNION ALL SELECT 2, 'Right side'
        UNION ALL SELECT 3, 'From behind') v
    WHERE t.ID = Given.parameter ORDER BY v.place;

CREATE VIEW spW_BikeCard AS
    SELECT b.ID, n.name AS Bicycle, n.typeName AS Type, b.size AS Size, b.bought AS Bought, b.km AS Kilometres,
        p.image AS IMGBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID JOIN Pictures p ON p.name = 'bicycle', Given
    WHERE b.ID = Given.parameter;

CREATE VIEW spW_BikeHiresShaped AS
    SELECT h.ID, h.customer AS Customer, h.taken AS "From", h.due AS "To", e.name AS Extra, x.quantity AS Quantity,
        x.charge AS Charge
    FROM HireSums h JOIN HireLines l ON l.hire = h.ID
        LEFT JOIN (HireLines x JOIN Extras e ON e.ID = x.extra) ON x.hire = h.ID, Given
    WHERE l.bicycle = Given.parameter ORDER BY h.taken DESC, h.ID, x.ID;

CREATE VIEW spW_FreeCrossTab AS
    SELECT n.styleName AS ID, sum(b.size = 'S') AS Small, sum(b.size = 'M') AS Medium, sum(b.size = 'L') AS Large
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, GivenDay g
    WHERE n.inFleet AND b.ID NOT IN (SELECT l.bicycle FROM HireLines l JOIN Hires h ON h.ID = l.hire
        WHERE l.bicycle IS NOT NULL AND h.taken <= g.day AND h.status <> 'BACK')
    GROUP BY n.style, n.styleName ORDER BY n.style;

CREATE VIEW spW_FreeOfStyle AS
    SELECT b.ID, n.name AS Bicycle, b.size AS Size, n.dayRate AS "Rate a day"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Given
    WHERE n.inFleet AND n.styleName = Given.parameter AND b.ID NOT IN (SELECT l.bicycle FROM HireLines l
        JOIN Hires h ON h.ID = l.hire WHERE l.bicycle IS NOT NULL AND h.status <> 'BACK')
    ORDER BY b.ID;

CREATE VIEW spW_StyleLimits AS
    SELECT y.ID, y.name AS Style, y.riders AS Riders, y.limitKg AS "Kilograms in all" FROM Styles y, Given
    WHERE y.name = Given.parameter;

CREATE VIEW spW_CafeVouchers AS
    SELECT c.ID, c.name AS Cafe, count(v.ID) AS Vouchers, ifnull(sum(v.value), 0) AS Value
    FROM GivenDay g, Cafes c
        LEFT JOIN Vouchers v ON v.cafe = c.ID AND v.day BETWEEN date(g.day, 'start of month') AND g.day
    GROUP BY c.ID ORDER BY c.name;

-- The workshop -----------------------------------------------------------------------------------------------------

CREATE VIEW spW_Notices AS
    SELECT b.ID, b.place AS Board, b.notice AS Notice, b.putUp AS "Put up"
    FROM Boards b, Given WHERE b.ID = Given.constant;

CREATE VIEW spW_JobsByWeekday AS
    SELECT CAST(strftime('%w', taken) AS INTEGER) AS ID,
        substr('SunMonTueWedThuFriSat', 3 * strftime('%w', taken) + 1, 3) AS Weekday, count(*) AS Jobs
    FROM RepairJobs GROUP BY 1, 2 ORDER BY 1;

CREATE VIEW spW_RepairJobs AS
    SELECT j.ID, j.customer AS Customer, j.bicycle AS Bicycle, j.taken AS "Taken in", j.labour AS Labour,
        j.parts AS Parts
    FROM JobSums j, Given WHERE j.status = Given.constant ORDER BY j.taken, j.ID;

CREATE VIEW spW_JobHead AS
    SELECT j.ID, c.name AS Customer, j.bicycle AS Bicycle, e.name AS Mechanic, j.taken AS "Taken in",
        j.status AS Status
    FROM RepairJobs j JOIN Customers c ON c.ID = j.customer JOIN Employees e ON e.code = j.mechanic, Given
    WHERE j.ID = Given.parameter;

CREATE VIEW spW_JobCosts AS
    SELECT t.ID, t.name AS Task, t.hours AS Hours, t.labour AS Labour, t.parts AS Parts
    FROM TaskSums t, Given WHERE t.job = Given.parameter ORDER BY t.ID;

CREATE VIEW spW_TaskHead AS
    SELECT t.ID, t.name AS Task, j.bicycle AS Bicycle, e.name AS Mechanic, t.hours AS Hours
    FROM Tasks t JOIN RepairJobs j ON j.ID = t.job JOIN Employees e ON e.code = j.mechanic, Given
    WHERE t.ID = Given.parameter;

CREATE VIEW spW_TaskParts AS
    SELECT p.ID, p.name AS Part, p.price AS Price, u.quantity AS Quantity, p.price * u.quantity AS Cost
    FROM TaskParts u JOIN Parts p ON p.ID = u.part, Given WHERE u.task = Given.parameter ORDER BY u.ID;

CREATE TRIGGER spW_ClosePaidJobs AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_ClosePaidJobs' BEGIN
    UPDATE RepairJobs SET status = 'CLOSED' WHERE status = 'DONE' AND paid;
END;

CREATE VIEW spW_JobTasksShaped AS
    SELECT t.ID, t.name AS Task, t.hours AS Hours, p.name AS Part, u.quantity AS Quantity,
        p.price * u.quantity AS Cost
    FROM Tasks t JOIN TaskParts u ON u.task = t.ID JOIN Parts p ON p.ID = u.part, Given
    WHERE t.job = Given.parameter ORDER BY t.ID, u.ID;

CREATE VIEW spW_JobPictures AS
    SELECT p.ID, p.moment AS Moment, s.pictureFolder || 'jobs/' || p.job || '-' || p.moment || '.jpg' AS FILEJob
    FROM JobPictures p, Shop s, Given WHERE p.job = Given.parameter ORDER BY p.ID;

CREATE VIEW spW_HoursByMechanic AS
    SELECT e.code AS ID, e.name AS Mechanic, count(*) AS Jobs, sum(j.hours) AS Hours
    FROM Employees e JOIN JobSums j ON j.mechanic = e.code GROUP BY e.ID ORDER BY e.name;

CREATE VIEW spW_JobsOfMechanic AS
    SELECT j.ID, j.bicycle AS Bicycle, j.status AS Status, j.hours AS Hours, j.labour AS Labour
    FROM JobSums j, Given WHERE j.mechanic = Given.parameter ORDER BY j.taken DESC, j.ID;

-- The week from Monday to Sunday that holds the day.
CREATE VIEW spW_RotaCrossTab AS
    SELECT r.mechanic AS ID, sum(CASE strftime('%w', r.day) WHEN '1' THEN r.hours ELSE 0 END) AS Mon,
        sum(CASE strftime('%w', r.day) WHEN '2' THEN r.hours ELSE 0 END) AS Tue,
        sum(CASE strftime('%w', r.day) WHEN '3' THEN r.hours ELSE 0 END) AS Wed,
        sum(CASE strftime('%w', r.day) WHEN '4' THEN r.hours ELSE 0 END) AS Thu,
        sum(CASE strftime('%w', r.day) WHEN '5' THEN r.hours ELSE 0 END) AS Fri,
        sum(CASE strftime('%w', r.day) WHEN '6' THEN r.hours ELSE 0 END) AS Sat,
        sum(CASE strftime('%w', r.day) WHEN '0' THEN r.hours ELSE 0 END) AS Sun
    FROM Rota r, GivenDay g
    WHERE r.day BETWEEN date(g.day, '-6 days', 'weekday 1') AND date(g.day, 'weekday 0')
    GROUP BY r.mechanic ORDER BY r.mechanic;

CREATE VIEW spW_ClaimsShaped AS
    SELECT c.ID, s.name AS Supplier, c.subject AS Claim, c.opened AS Opened, l.day AS Day, l.subject AS Letter
    FROM Claims c JOIN Suppliers s ON s.ID = c.supplier JOIN ClaimLetters l ON l.claim = c.ID ORDER BY c.ID, l.day;

-- The fleet --------------------------------------------------------------------------------------------------------

CREATE VIEW spW_FleetFigures AS
    SELECT 1 AS ID, sum(salePrice IS NULL) AS "Bicycles for hire", sum(salePrice IS NOT NULL) AS "Bicycles for sale",
        (SELECT sum(bicycles) FROM HireSums WHERE status = 'OUT') AS "Out now", sum(km) AS "Kilometres in all"
    FROM Bicycles;

CREATE VIEW spW_FleetPictures AS
    SELECT b.ID, n.name AS Bicycle, s.pictureFolder || 'bicycles/' || b.ID || '.jpg' AS FILEBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s WHERE n.inFleet ORDER BY b.ID;

-- Each bicycle of the fleet runs 15 kilometres a day.
CREATE TRIGGER spW_UpdateMileage AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_UpdateMileage' BEGIN
    UPDATE Bicycles SET km = km + 15 * (julianday((SELECT day FROM GivenDay)) - julianday(kmOn)),
        kmOn = (SELECT day FROM GivenDay)
    WHERE salePrice IS NULL AND kmOn < (SELECT day FROM GivenDay);
END;

CREATE VIEW spW_ServiceDue AS
    SELECT b.ID, n.name AS Bicycle, CAST(julianday(g.day) - julianday(b.serviced) AS INTEGER) AS "Days since service",
        b.km - b.servicedAtKm AS "Kilometres since service"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, GivenDay g, Given
    WHERE n.inFleet AND b.km - b.servicedAtKm >= Given.constant ORDER BY 4 DESC, b.ID;

CREATE VIEW spW_SpentByYear AS
    SELECT strftime('%Y', bought) AS ID, strftime('%Y', bought) AS Year, count(*) AS Bicycles, sum(price) AS Spent
    FROM Bicycles GROUP BY 1, 2 ORDER BY 1;

-- A bicycle loses a sixth of its price each year.
CREATE VIEW spW_BikesBoughtIn AS
    SELECT b.ID, n.name AS Bicycle, b.bought AS Bought, b.price AS Price,
        round(b.price * max(0, 1 - (julianday(s.today) - julianday(b.bought)) / 365 / 6)) AS "Worth now"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s, Given
    WHERE strftime('%Y', b.bought) = CAST(Given.parameter AS TEXT) ORDER BY b.bought, b.ID;

CREATE VIEW spW_ForSalePictures AS
    SELECT b.ID, n.name AS Bicycle, s.pictureFolder || 'bicycles/' || b.ID || '.jpg' AS FILEBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s WHERE NOT n.inFleet ORDER BY b.ID;

CREATE VIEW spW_ForSale AS
    SELECT b.ID, n.name AS Bicycle, n.typeName AS Type, b.size AS Size, b.salePrice AS Price
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID WHERE NOT n.inFleet ORDER BY b.salePrice, b.ID;

-- The stock --------------------------------------------------------------------------------------------------------

CREATE VIEW spW_StockValue AS
    SELECT room AS ID, room AS Room, sum(stock) AS Pieces, sum(value) AS Value FROM Stored GROUP BY room ORDER BY room;

CREATE VIEW spW_PartsBelow AS
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.quantity AS Quantity, p.price * p.quantity AS Cost
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier, GivenKey g WHERE p.inside = g.ID ORDER BY p.name;

CREATE VIEW spW_PartCard AS
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.price AS Price, p.room || ' ' || p.shelf AS Place,
        p.stock AS "In stock", i.image AS IMGPart
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier JOIN Pictures i ON i.name = 'part', Given
    WHERE p.ID = Given.parameter;

CREATE VIEW spW_GoodsOfCategory AS
    SELECT g.ID, g.name AS Goods, g.price AS Price, g.stock AS "In stock"
    FROM Goods g JOIN CategoryBranches b ON b.category = g.category, GivenKey k WHERE b.top = k.ID ORDER BY g.name;

CREATE VIEW spW_SalesBelow AS
    SELECT c.ID, c.name AS Category, ifnull(sum(t.amount), 0) AS Sales
    FROM GivenKey k JOIN Categories c ON c.above = k.ID JOIN CategoryBranches b ON b.top = c.ID
        LEFT JOIN Goods g ON g.category = b.category LEFT JOIN Takings t ON t.goods = g.ID
    GROUP BY c.ID ORDER BY c.name;

CREATE VIEW spW_OrdersCrossTab AS
    SELECT o.supplier AS ID, sum(CASE strftime('%m', o.day) WHEN '01' THEN l.quantity * l.price ELSE 0 END) AS Jan,
        sum(CASE strftime('%m', o.day) WHEN '02' THEN l.quantity * l.price ELSE 0 END) AS Feb,
        sum(CASE strftime('%m', o.day) WHEN '03' THEN l.quantity * l.price ELSE 0 END) AS Mar,
        sum(CASE strftime('%m', o.day) WHEN '04' THEN l.quantity * l.price ELSE 0 END) AS Apr,
        sum(CASE strftime('%m', o.day) WHEN '05' THEN l.quantity * l.price ELSE 0 END) AS May,
        sum(CASE strftime('%m', o.day) WHEN '06' THEN l.quantity * l.price ELSE 0 END) AS Jun,
        sum(CASE strftime('%m', o.day) WHEN '07' THEN l.quantity * l.price ELSE 0 END) AS Jul,
        sum(CASE strftime('%m', o.day) WHEN '08' THEN l.quantity * l.price ELSE 0 END) AS Aug,
        sum(CASE strftime('%m', o.day) WHEN '09' THEN l.quantity * l.price ELSE 0 END) AS Sep,
        sum(CASE strftime('%m', o.day) WHEN '10' THEN l.quantity * l.price ELSE 0 END) AS Oct,
        sum(CASE strftime('%m', o.day) WHEN '11' THEN l.quantity * l.price ELSE 0 END) AS Nov,
        sum(CASE strftime('%m', o.day) WHEN '12' THEN l.quantity * l.price ELSE 0 END) AS Dec
    FROM Orders o JOIN OrderLines l ON l.purchase = o.ID GROUP BY o.supplier ORDER BY o.supplier;

CREATE VIEW spW_SupplierHead AS
    SELECT s.ID, s.name AS Supplier, s.town AS Town, s.phone AS Phone
    FROM Suppliers s, Given WHERE s.ID = Given.parameter;

CREATE VIEW spW_OrdersShaped AS
    SELECT o.ID, o.day AS Ordered, CASE WHEN o.paid THEN 'Yes' ELSE 'No' END AS Paid, p.name AS Part,
        l.quantity AS Quantity, l.quantity * l.price AS Amount
    FROM Orders o JOIN OrderLines l ON l.purchase = o.ID JOIN Parts p ON p.ID = l.part, Given
    WHERE o.supplier = Given.parameter ORDER BY o.day DESC, l.ID;

CREATE VIEW spW_PartPrices AS
    SELECT p.year AS ID, p.year AS Year, p.price AS Price FROM PartPrices p, Given WHERE p.part = Given.parameter
    ORDER BY p.year;

-- Orders what is missing to the minimum, and a reserve for the given number of days: one piece for each ten days.
CREATE TRIGGER spW_SetReorder AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_SetReorder' BEGIN
    UPDATE Parts SET toOrder = CASE WHEN stock < minimum THEN minimum - stock + NEW.constant / 10 ELSE 0 END;
END;

CREATE VIEW spW_PartsToReorder AS
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.stock AS "In stock", p.minimum AS Minimum,
        p.toOrder AS "To order"
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier WHERE p.stock < p.minimum ORDER BY s.name, p.name;

CREATE VIEW spW_StockByShelf AS
    SELECT shelf AS ID, room || ' ' || shelf AS Shelf, sum(stock) AS Pieces, sum(value) AS Value
    FROM Stored GROUP BY shelf, room ORDER BY shelf;

-- The customers ----------------------------------------------------------------------------------------------------

CREATE VIEW spW_CustomerFigures AS
    SELECT 1 AS ID, count(*) AS Customers, count(club) AS "In a club or company",
        (SELECT count(*) FROM Hires) AS Hires
    FROM Customers;

CREATE VIEW spW_CustomersPerInitial AS
    SELECT unicode(name) AS ID, substr(name, 1, 1) AS Initial, count(*) AS Customers FROM Customers GROUP BY 1, 2
    ORDER BY 1;

CREATE VIEW spW_CustomersByInitial AS
    SELECT c.ID, c.name AS Customer, c.since AS Since, count(h.ID) AS Hires, sum(h.charge) AS Charges
    FROM Customers c JOIN HireSums h ON h.customerID = c.ID, Given
    WHERE substr(c.name, 1, 1) = Given.parameter GROUP BY c.ID ORDER BY c.name;

CREATE VIEW spW_CustomerHead AS
    SELECT c.ID, c.name AS Customer, c.phone AS Phone, c.since AS Since, b.name AS Club
    FROM Customers c LEFT JOIN Clubs b ON b.ID = c.club, Given WHERE c.ID = Given.parameter;

CREATE VIEW spW_HiresOfCustomer AS
    SELECT h.ID, h.taken AS "From", h.due AS "To", h.bicycles AS Bicycles, h.charge AS Charge
    FROM HireSums h, Given WHERE h.customerID = Given.parameter ORDER BY h.taken DESC, h.ID;

CREATE VIEW spW_CustomerJobsShaped AS
    SELECT j.ID, j.bicycle AS Bicycle, j.taken AS "Taken in", t.name AS Task, t.hours AS Hours
    FROM RepairJobs j JOIN Tasks t ON t.job = j.ID, Given WHERE j.customer = Given.parameter
    ORDER BY j.taken DESC, t.ID;

CREATE VIEW spW_ClubDiscounts AS
    SELECT b.ID, b.name AS Club, count(h.ID) AS Hires, round(sum(h.charge) * b.discount / 100, 2) AS Discount
    FROM Clubs b JOIN Customers c ON c.club = b.ID JOIN HireSums h ON h.customerID = c.ID GROUP BY b.ID
    ORDER BY b.name;

CREATE VIEW spW_ClubHead AS
    SELECT b.ID, b.name AS Club, b.contact AS Contact, b.discount || ' %' AS Discount, b.since AS Since
    FROM Clubs b, Given WHERE b.ID = Given.parameter;

CREATE VIEW spW_ClubHiresByMonth AS
    SELECT strftime('%Y%m', h.taken) AS ID, strftime('%Y-%m', h.taken) AS Month, count(*) AS Hires
    FROM Hires h JOIN Customers c ON c.ID = h.customer, Given WHERE c.club = Given.parameter GROUP BY 1, 2 ORDER BY 1;

CREATE VIEW spW_DepositsOwed AS
    SELECT h.ID, h.customer AS Customer, h.taken AS "Goes out", h.deposit AS Deposit FROM OpenHires h
    WHERE NOT h.depositPaid ORDER BY h.taken, h.ID;

CREATE VIEW spW_NewCustomers AS
    SELECT c.ID, c.name AS Customer, c.since AS Since, h.ID AS "First hire", h.charge AS Charge
    FROM Customers c JOIN HireSums h ON h.ID = (SELECT min(f.ID) FROM Hires f WHERE f.customer = c.ID), GivenDay g
    WHERE c.since BETWEEN date(g.day, 'start of month') AND g.day ORDER BY c.since, c.ID;

-- The accounts -----------------------------------------------------------------------------------------------------

CREATE VIEW spW_TakingsByMonth AS
    SELECT strftime('%Y%m', t.day) AS ID, strftime('%Y-%m', t.day) AS Month, sum(t.amount) AS Takings
    FROM Takings t, GivenDay g, Given
    WHERE t.day BETWEEN date(g.day, 'start of month', '-' || (Given.constant - 1) || ' months') AND g.day
    GROUP BY 1, 2 ORDER BY 1;

CREATE VIEW spW_TakingsCrossTab AS
    SELECT strftime('%Y', day) AS ID, sum(CASE section WHEN 1 THEN amount ELSE 0 END) AS Hire,
        sum(CASE section WHEN 2 THEN amount ELSE 0 END) AS Repairs,
        sum(CASE section WHEN 3 THEN amount ELSE 0 END) AS Sales
    FROM Takings GROUP BY 1 ORDER BY 1;

CREATE VIEW spW_TakingsOfYear AS
    SELECT strftime('%Y%m', t.day) AS ID, m.name AS Month,
        sum(CASE t.section WHEN 1 THEN t.amount ELSE 0 END) AS Hire,
        sum(CASE t.section WHEN 2 THEN t.amount ELSE 0 END) AS Repairs,
        sum(CASE t.section WHEN 3 THEN t.amount ELSE 0 END) AS Sales
    FROM Takings t JOIN Months m ON m.number = strftime('%m', t.day), Given
    WHERE strftime('%Y', t.day) = CAST(Given.parameter AS TEXT) GROUP BY 1, 2 ORDER BY 1;

CREATE VIEW spW_TakingsOfMonth AS
    SELECT strftime('%Y%m%d', day) AS ID, day AS Day, sum(CASE section WHEN 1 THEN amount ELSE 0 END) AS Hire,
        sum(CASE section WHEN 2 THEN amount ELSE 0 END) AS Repairs,
        sum(CASE section WHEN 3 THEN amount ELSE 0 END) AS Sales
    FROM Takings, Given WHERE strftime('%Y%m', day) = CAST(Given.parameter AS TEXT) GROUP BY 1, 2 ORDER BY 1;

CREATE VIEW spW_ReceiptsShaped AS
    SELECT t.receipt AS ID, s.name AS Section, t.paidBy AS "Paid by", t.what AS Item, t.quantity AS Quantity,
        t.amount AS Amount
    FROM Takings t JOIN Sections s ON s.ID = t.section, Given
    WHERE strftime('%Y%m%d', t.day) = CAST(Given.parameter AS TEXT) ORDER BY t.receipt, t.what;

CREATE VIEW spW_MoneyOwed AS
    SELECT 1 AS ID, (SELECT sum(amount - paid) FROM InvoiceSums WHERE day <= g.day) AS "Owed to us",
        (SELECT sum(amount - paid) FROM InvoiceSums WHERE due < g.day) AS "Of that overdue",
        (SELECT sum(l.quantity * l.price) FROM Orders o JOIN OrderLines l ON l.purchase = o.ID
         WHERE NOT o.paid AND o.day <= g.day) AS "Owed by us"
    FROM GivenDay g;

-- Reminds of invoices that are overdue by more than the given number of days, once each.
CREATE TRIGGER spW_WriteReminders AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_WriteReminders' BEGIN
    INSERT INTO Reminders(invoice, day)
        SELECT i.ID, g.day FROM Invoices i, GivenDay g
        WHERE i.status = 'UNPAID' AND julianday(g.day) - julianday(i.due) > NEW.constant
            AND i.ID NOT IN (SELECT invoice FROM Reminders);
END;

CREATE VIEW spW_Invoices AS
    SELECT i.ID, i.customer AS Customer, i.day AS Day, i.amount AS Amount, i.paid AS Paid
    FROM InvoiceSums i, Given WHERE i.status = Given.constant ORDER BY i.day;

CREATE VIEW spW_InvoiceHead AS
    SELECT i.ID, i.customer AS Customer, i.day AS Day, i.due AS Due, i.status AS Status, i.amount - i.paid AS Owed
    FROM InvoiceSums i, Given WHERE i.ID = Given.parameter;

CREATE VIEW spW_InvoiceLines AS
    SELECT l.ID, l.item AS Item, l.quantity AS Quantity, l.price AS Price, l.quantity * l.price AS Amount
    FROM InvoiceLines l, Given WHERE l.invoice = Given.parameter ORDER BY l.ID;

CREATE VIEW spW_DepositsHeld AS
    SELECT h.ID, h.customer AS Customer, h.due AS "Due back", h.deposit AS Deposit FROM OpenHires h
    WHERE h.depositPaid ORDER BY h.due, h.ID;

CREATE VIEW spW_ProfitBySection AS
    SELECT s.ID, s.name AS Section, i.amount AS Income, c.amount AS Costs, i.amount - c.amount AS Profit
    FROM Sections s JOIN (SELECT section, sum(amount) AS amount FROM Takings GROUP BY section) i ON i.section = s.ID
        JOIN (SELECT section, sum(amount) AS amount FROM Costs GROUP BY section) c ON c.section = s.ID
    ORDER BY s.ID;

CREATE TRIGGER spW_CloseDay AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_CloseDay' BEGIN
    INSERT OR REPLACE INTO TillBook
        SELECT t.day, count(DISTINCT t.receipt), sum(t.amount)
        FROM Takings t JOIN GivenDay g ON g.day = t.day GROUP BY t.day;
END;

CREATE VIEW spW_TillCount AS
    SELECT t.paidBy AS ID, t.paidBy AS "Paid by", count(DISTINCT t.receipt) AS Receipts, sum(t.amount) AS Amount
    FROM Takings t JOIN GivenDay g ON g.day = t.day GROUP BY t.paidBy ORDER BY t.paidBy;

CREATE TRIGGER spW_AddLateCharges AFTER UPDATE OF run ON Given WHEN NEW.run = 'spW_AddLateCharges' BEGIN
    INSERT OR IGNORE INTO LateCharges(hire, day, amount)
        SELECT h.ID, g.day, 10 FROM Hires h, GivenDay g WHERE h.status = 'OUT' AND h.due < g.day;
END;

-- The staff --------------------------------------------------------------------------------------------------------

CREATE VIEW spW_StaffPictures AS
    SELECT e.ID, e.name AS Name, s.pictureFolder || 'staff/' || e.ID || '.jpg' AS FILEStaff FROM Employees e, Shop s
    ORDER BY e.name;

-- The card of the person with this key; with the key 0, of the one who has no boss.
CREATE VIEW spW_StaffCard AS
    SELECT e.ID, e.name AS Name, e.role AS Role, e.hours AS "Hours a week", p.image AS IMGPerson
    FROM Employees e JOIN Pictures p ON p.name = 'person', GivenKey k
    WHERE e.ID = k.ID OR (k.ID = 0 AND e.boss = 0);

CREATE VIEW spW_StaffBelow AS
    SELECT e.ID, e.name AS Name, e.role AS Role, e.hours AS "Hours a week", e.hours * e.rate AS "Pay a week"
    FROM Employees e, GivenKey k WHERE e.boss = k.ID ORDER BY e.name;

-- The days off of the last year.
CREATE VIEW spW_HolidayCrossTab AS
    SELECT e.name AS ID, sum(strftime('%m', h.day) = '01') AS Jan, sum(strftime('%m', h.day) = '02') AS Feb,
        sum(strftime('%m', h.day) = '03') AS Mar, sum(strftime('%m', h.day) = '04') AS Apr,
        sum(strftime('%m', h.day) = '05') AS May, sum(strftime('%m', h.day) = '06') AS Jun,
        sum(strftime('%m', h.day) = '07') AS Jul, sum(strftime('%m', h.day) = '08') AS Aug,
        sum(strftime('%m', h.day) = '09') AS Sep, sum(strftime('%m', h.day) = '10') AS Oct,
        sum(strftime('%m', h.day) = '11') AS Nov, sum(strftime('%m', h.day) = '12') AS Dec
    FROM Employees e JOIN Holidays h ON h.employee = e.ID GROUP BY e.ID ORDER BY e.name;

CREATE VIEW spW_CertificatesShaped AS
    SELECT e.ID, e.name AS Name, e.role AS Role, c.name AS Certificate, c.passed AS Passed,
        date(c.passed, '+' || c.validYears || ' years') AS "Valid until"
    FROM Employees e JOIN Certificates c ON c.employee = e.ID ORDER BY e.name, c.name;

-- The two tables of the wizard, for its files ----------------------------------------------------------------------

CREATE TABLE XST1(ID INTEGER PRIMARY KEY, descriptionIs TEXT, typeIs TEXT, parentIs INTEGER, queryIs TEXT,
    parmIs TEXT, iconIs TEXT, roleIs TEXT);
CREATE TABLE XST2(ID INTEGER PRIMARY KEY, XST1 INTEGER, seqNo INTEGER, titleIs TEXT, queryIs TEXT, parmIs TEXT,
    typeIs TEXT, formIs INTEGER, colsAre TEXT, extra TEXT);

COMMIT;

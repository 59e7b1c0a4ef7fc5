-- SPDX-License-Identifier: MIT
-- The database of the sample shop for MariaDB 10.6 or later: the tables and made-up data of shop.sql, and every query
-- that the schemes in XST1.txt and XST2.txt name, as a procedure. Load it into a new database, then import both files
-- into the tables XST1 and XST2, which this script creates:
--
--     mariadb -e "CREATE DATABASE shop CHARACTER SET utf8mb4"
--     mariadb shop < shop-mariadb.sql
--     fields="CHARACTER SET latin1 FIELDS TERMINATED BY ',' ENCLOSED BY '\"' ESCAPED BY ''"
--     lines="LINES TERMINATED BY '\r\n' IGNORE 1 LINES"
--     mariadb --local-infile shop -e "LOAD DATA LOCAL INFILE 'XST1.txt' INTO TABLE XST1 $fields $lines"
--     mariadb --local-infile shop -e "LOAD DATA LOCAL INFILE 'XST2.txt' INTO TABLE XST2 $fields $lines"
--
-- Here, latin1 is MariaDB's name for the code page Windows-1252.
--
-- To run a query, call its procedure with the constant of the scheme, if it has one, and then with what the parameter
-- kind supplies: a number for Lkey, a text for CKeynn, Text and Today:
--
--     CALL spW_HireHead(1003);
--     CALL spG_BikesOfType('CTL');
--     CALL spG_HiresLate(2, '05-Mar-2026');
--     CALL spW_AddLateCharges('05-Mar-2026');
--
-- If you change this file, change shop.sql and shop-postgresql.sql as well.
--
-- All dates are around the day on which the script is loaded. For another day, replace current_date in the statement
-- that fills the table Shop.

-- A procedure keeps the mode in which it was created: || joins texts, and names may stand in double quotes.
SET sql_mode = 'STRICT_TRANS_TABLES,PIPES_AS_CONCAT,ANSI_QUOTES';
SET NAMES utf8mb4;

-- The shop ---------------------------------------------------------------------------------------------------------

CREATE TABLE Shop(ID integer PRIMARY KEY, name varchar(60), address varchar(100), phone varchar(100),
    hours varchar(100), hourlyRate decimal(10, 2),
    pictureFolder varchar(100), today date);
INSERT INTO Shop VALUES(1, 'Wheel and Spanner', '12 Mill Lane', '01632 960100', 'Daily from 9 to 18', 36,
    '/srv/shop/pictures/', current_date);

-- The numbers from 0 to 199, from which most of the data is made.
CREATE TEMPORARY TABLE N AS
    WITH RECURSIVE Numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM Numbers WHERE n < 199) SELECT n FROM Numbers;

CREATE TABLE Sections(ID integer PRIMARY KEY, name varchar(60));
INSERT INTO Sections VALUES(1, 'Hire'), (2, 'Repairs'), (3, 'Sales');

CREATE TABLE Pictures(name varchar(60) PRIMARY KEY, image blob);
INSERT INTO Pictures VALUES
    ('shop', X'4749463839611A000E00800000FFFFFF8B3A1E2C000000001A000E0000023C0482A9CB61D762340ED28AAE3E74670B7E558895DEC83DEACAA6DD04312E8776F3AB3A75BAEBF9CD5B65503EA1ED478C2D8E8F22B3D59B49A6094301003B'),
    ('bicycle', X'4749463839611A000C00800000FFFFFF1F5FA82C000000001A000C00000232848F101BE96F169C8845861B8D4FABCD258DE639D877789959A1E518C6299CC6AAADDC242E5AAED8AACD82A88A8F72041400003B'),
    ('part', X'4749463839610F000F00800000FFFFFF5555552C000000000F000F00000227841F79CB198C9C748B561521C0E675EE59DEF6491D528AE8868D1699411C3B96D7646AAF663305003B'),
    ('person', X'4749463839611A000C00800000FFFFFF2E7D4F2C000000001A000C00000221848FA18BEDB9E29B274A3A2DC3D9727C7D901652E41998E8D9AD5AEB9663BC1905003B');

CREATE TABLE Boards(ID integer PRIMARY KEY, place varchar(100), notice varchar(100), putUp date);
INSERT INTO Boards VALUES
    (1, 'Hire desk', 'Helmets are lent free of charge', (SELECT today - INTERVAL 12 DAY FROM Shop)),
    (2, 'Workshop', 'The second repair stand is free again', (SELECT today - INTERVAL 3 DAY FROM Shop)),
    (3, 'Staff room', 'Hand in holiday wishes by the end of the month', (SELECT today - INTERVAL 5 DAY FROM Shop));

-- Staff ------------------------------------------------------------------------------------------------------------

-- The manager has the boss 0. Mechanics have a code of two letters.
CREATE TABLE Employees(ID integer PRIMARY KEY, name varchar(60), role varchar(100), boss integer, hours integer,
    rate decimal(10, 2),
    code varchar(100));
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

CREATE TABLE Holidays(employee integer REFERENCES Employees(ID), day date, PRIMARY KEY(employee, day));
INSERT INTO Holidays
    SELECT e.ID, s.today - INTERVAL ((e.ID * 23 + k.n * 41) % 330) DAY
    FROM Employees e, Shop s, N k WHERE k.n < 8;

CREATE TABLE Certificates(ID integer AUTO_INCREMENT PRIMARY KEY, employee integer REFERENCES Employees(ID),
    name varchar(60), passed date,
    validYears integer);
INSERT INTO Certificates(employee, name, passed, validYears)
    SELECT e.ID, c.name, s.today - INTERVAL ((e.ID * 67 + c.step * 90) % 700) DAY, c.years
    FROM Employees e, Shop s,
        (SELECT 0 AS step, 'First aid' AS name, 2 AS years UNION ALL SELECT 1, 'Fire safety', 3
         UNION ALL SELECT 2, 'Electric drives', 5) c
    WHERE c.step = 0 OR (c.step = 1 AND e.ID % 2 = 0) OR (c.step = 2 AND e.code IS NOT NULL)
    ORDER BY e.ID, c.step;

CREATE TABLE Rota(mechanic varchar(60), day date, hours integer, PRIMARY KEY(mechanic, day));
INSERT INTO Rota
    SELECT e.code, s.today + INTERVAL (k.n - 20) DAY,
        CASE WHEN (DAYOFWEEK(s.today + INTERVAL (k.n - 20) DAY) - 1) = 0 THEN 0
             WHEN (k.n + e.ID) % 4 = 0 THEN 0 ELSE 6 + (k.n + e.ID) % 3 END
    FROM Employees e, Shop s, N k WHERE e.code IS NOT NULL AND k.n <= 40;

-- Bicycles ---------------------------------------------------------------------------------------------------------

CREATE TABLE Styles(ID integer PRIMARY KEY, name varchar(60), riders integer, limitKg integer, dayRate decimal(10, 2));
INSERT INTO Styles VALUES
    (1, 'City bicycles', 1, 120, 14),
    (2, 'Mountain bicycles', 1, 110, 22),
    (3, 'Tandem bicycles', 2, 180, 30),
    (4, 'Cargo bicycles', 1, 220, 35);

CREATE TABLE BikeTypes(ID varchar(60) PRIMARY KEY, name varchar(60), style integer REFERENCES Styles(ID), gears integer,
    price decimal(10, 2));
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
CREATE TABLE Bicycles(ID integer PRIMARY KEY, type varchar(60) REFERENCES BikeTypes(ID), size varchar(100),
    bought date, price decimal(10, 2),
    km integer, kmOn date, serviced date, servicedAtKm integer, salePrice decimal(10, 2));
INSERT INTO Bicycles
    SELECT k.n, t.ID, substr('SML', 1 + (k.n DIV 9) % 3, 1), s.today - INTERVAL (250 + (k.n * 37) % 1500) DAY,
        t.price, 1200 + (k.n * 211) % 4000, s.today - INTERVAL 1 DAY,
        s.today - INTERVAL (5 + (k.n * 13) % 200) DAY,
        1200 + (k.n * 211) % 4000 - (k.n * 131) % 900, CASE WHEN k.n > 86 THEN round(t.price * 0.45) END
    FROM Shop s, N k
        JOIN (SELECT *, row_number() OVER (ORDER BY ID) - 1 AS place FROM BikeTypes) t ON t.place = k.n % 9
    WHERE k.n BETWEEN 1 AND 94;

CREATE VIEW BikeNames AS
    SELECT b.ID, b.type || ' ' || lpad(b.ID, 3, '0') AS name, t.name AS typeName, t.style, y.name AS styleName,
        y.dayRate,
        b.salePrice IS NULL AS inFleet
    FROM Bicycles b JOIN BikeTypes t ON t.ID = b.type JOIN Styles y ON y.ID = t.style;

-- Customers and hires ----------------------------------------------------------------------------------------------

CREATE TABLE Clubs(ID varchar(60) PRIMARY KEY, name varchar(60), contact varchar(100), discount integer, since date);
INSERT INTO Clubs VALUES
    ('RIVERSID', 'Riverside Ramblers', 'Ms Carver', 10, '2019-04-01'),
    ('HILLTOPS', 'Hilltop School', 'Mr Ellis', 15, '2020-09-01'),
    ('MILLWORK', 'Mill Works Ltd', 'Ms Grant', 8, '2021-02-15'),
    ('TANDEMCC', 'Tandem Touring Club', 'Mr Vance', 12, '2018-06-01'),
    ('LANTERNS', 'Lantern Street Traders', 'Ms Young', 5, '2022-11-01');

CREATE TABLE Customers(ID integer PRIMARY KEY, name varchar(60), phone varchar(100), since date,
    club varchar(60) REFERENCES Clubs(ID));
INSERT INTO Customers(ID, name, phone, club)
WITH Surnames(n, name) AS (VALUES(0, 'Abbott'), (1, 'Baker'), (2, 'Carver'), (3, 'Dale'), (4, 'Ellis'), (5, 'Frost'),
        (6, 'Grant'), (7, 'Hale'), (8, 'Irwin'), (9, 'Joyce'), (10, 'Keane'), (11, 'Lowe'), (12, 'Marsh'),
        (13, 'Nolan'), (14, 'Owen'), (15, 'Price'), (16, 'Quinn'), (17, 'Reed'), (18, 'Shaw'), (19, 'Todd'),
        (20, 'Upton'), (21, 'Vance'), (22, 'Ward'), (23, 'Young')),
    FirstNames(n, name) AS (VALUES(0, 'Anna'), (1, 'Boris'), (2, 'Clara'), (3, 'Daniel'), (4, 'Emma'), (5, 'Felix'),
        (6, 'Greta'), (7, 'Henry'), (8, 'Ida'), (9, 'Jonas'), (10, 'Karin'), (11, 'Leo'), (12, 'Maria'), (13, 'Noah'),
        (14, 'Olga'), (15, 'Paul'))
    SELECT k.n, s.name || ', ' || f.name, '01632 960' || (200 + k.n), c.ID
    FROM N k JOIN Surnames s ON s.n = k.n % 24 JOIN FirstNames f ON f.n = (k.n * 5 + k.n DIV 24) % 16
        LEFT JOIN (SELECT ID, row_number() OVER (ORDER BY ID) - 1 AS place FROM Clubs) c
            ON k.n % 6 = 0 AND c.place = (k.n DIV 6) % 5
    WHERE k.n BETWEEN 1 AND 64;

CREATE TABLE Extras(ID integer PRIMARY KEY, name varchar(60), price decimal(10, 2));
INSERT INTO Extras VALUES(1, 'Child seat', 5), (2, 'Pannier bags', 4), (3, 'Trailer', 9), (4, 'Picnic basket', 3),
    (5, 'Map holder', 2);

-- A hire is BOOKED before it goes out, then OUT, then BACK.
CREATE TABLE Hires(ID integer PRIMARY KEY, customer integer REFERENCES Customers(ID), taken date, hour integer,
    due date, dueHour integer, back date, status varchar(100), deposit decimal(10, 2), depositPaid boolean);
-- One hire a day until four days ago, some of them never brought back; then six that are due back today, two on each
-- of the last two days, and twelve that go out today, the last four of them to new customers.
INSERT INTO Hires
WITH Plan AS (
    SELECT k.n, s.today,
        s.today - INTERVAL (CASE WHEN k.n <= 176 THEN 180 - k.n WHEN k.n <= 182 THEN 3 WHEN k.n <= 184 THEN 2
                                  WHEN k.n <= 186 THEN 1 ELSE 0 END) DAY AS taken,
        CASE WHEN k.n <= 176 THEN 1 + k.n % 5 WHEN k.n <= 182 THEN 3 ELSE 2 + k.n % 3 END AS days,
        k.n % 9 = 0 AND k.n BETWEEN 130 AND 172 AS isLate
    FROM N k, Shop s WHERE k.n BETWEEN 1 AND 198),
  Dated AS (SELECT *, taken + INTERVAL (days) DAY AS due FROM Plan)
    SELECT 1000 + n, CASE WHEN n <= 194 THEN 1 + (n * 7) % 60 ELSE n - 134 END, taken, 9 + n % 8, due, 10 + n % 7,
        CASE WHEN due < today AND NOT isLate THEN due END,
        CASE WHEN taken = today THEN 'BOOKED' WHEN due < today AND NOT isLate THEN 'BACK' ELSE 'OUT' END,
        50 + 10 * (n % 6), n % 4 <> 0
    FROM Dated;

CREATE TABLE HireLines(ID integer AUTO_INCREMENT PRIMARY KEY, hire integer REFERENCES Hires(ID),
    bicycle integer REFERENCES Bicycles(ID), extra integer REFERENCES Extras(ID), quantity integer, charge decimal(10,
    2));
INSERT INTO HireLines(hire, bicycle, quantity, charge)
WITH Parties AS (
    SELECT h.ID AS hire, h.ID - 1000 AS n, k.n AS k, DATEDIFF(h.due, h.taken) AS days,
        h.status = 'OUT' AND h.due < s.today AS isLate
    FROM Hires h, Shop s, N k WHERE k.n <= 2),
  Bikes AS (
    SELECT hire, n, k, days,
        CASE WHEN isLate THEN 49 + (n DIV 9) % 5 WHEN n <= 176 THEN 1 + (n * 5 + k * 17) % 48
             WHEN k = 0 THEN 54 + n - 177 ELSE 76 + (n - 177) DIV 2 END AS bicycle
    FROM Parties
    WHERE k = 0 OR (NOT isLate AND k <= CASE WHEN n <= 176 THEN n % 3 ELSE n % 2 END))
    SELECT p.hire, p.bicycle, 1, b.dayRate * p.days FROM Bikes p JOIN BikeNames b ON b.ID = p.bicycle
    ORDER BY p.hire, p.k;
ALTER TABLE HireLines AUTO_INCREMENT = 1; -- go on without a gap
INSERT INTO HireLines(hire, extra, quantity, charge)
    SELECT h.ID, e.ID, 1 + (h.ID DIV 2) % 2, e.price * (1 + (h.ID DIV 2) % 2)
    FROM Hires h JOIN Extras e ON e.ID = 1 + (h.ID DIV 2) % 5 WHERE h.ID % 2 = 0 ORDER BY h.ID;

UPDATE Customers SET since = (SELECT min(taken) FROM Hires WHERE customer = Customers.ID);

-- A charge for each day that a hire is late; spW_AddLateCharges adds those of the day.
CREATE TABLE LateCharges(ID integer AUTO_INCREMENT PRIMARY KEY, hire integer REFERENCES Hires(ID), day date,
    amount decimal(10, 2),
    UNIQUE(hire, day));
INSERT INTO LateCharges(hire, day, amount)
    SELECT h.ID, h.due + INTERVAL (k.n) DAY, 10
    FROM Hires h, Shop s, N k
    WHERE h.status = 'OUT' AND k.n >= 1 AND h.due + INTERVAL (k.n) DAY < s.today
    ORDER BY h.ID, k.n;

CREATE TABLE Cafes(ID integer PRIMARY KEY, name varchar(60));
INSERT INTO Cafes VALUES(1, 'Lock House'), (2, 'The Old Ferry'), (3, 'Windmill Kitchen'), (4, 'Station Buffet');

CREATE TABLE Vouchers(ID integer AUTO_INCREMENT PRIMARY KEY, cafe integer REFERENCES Cafes(ID),
    hire integer REFERENCES Hires(ID),
    day date, value decimal(10, 2));
INSERT INTO Vouchers(cafe, hire, day, value)
    SELECT 1 + (ID DIV 2) % 4, ID, taken, 4 + ID % 3 FROM Hires WHERE ID % 2 = 0 ORDER BY ID;

-- TEMPTABLE: MariaDB cannot sum what a merged view has summed already.
CREATE ALGORITHM = TEMPTABLE VIEW HireSums AS
    SELECT h.ID, c.name AS customer, h.customer AS customerID, h.taken, h.hour, h.due, h.dueHour, h.status, h.deposit,
        h.depositPaid, (SELECT count(*) FROM HireLines l WHERE l.hire = h.ID AND l.bicycle IS NOT NULL) AS bicycles,
        (SELECT sum(l.charge) FROM HireLines l WHERE l.hire = h.ID) AS charge,
        (SELECT coalesce(sum(a.amount), 0) FROM LateCharges a WHERE a.hire = h.ID) AS lateCharge
    FROM Hires h JOIN Customers c ON c.ID = h.customer;

-- Stock ------------------------------------------------------------------------------------------------------------

CREATE TABLE Suppliers(ID varchar(60) PRIMARY KEY, name varchar(60), town varchar(100), phone varchar(100));
INSERT INTO Suppliers VALUES
    ('WHEELS', 'Rim and Spoke', 'Northport', '01632 960301'),
    ('BRAKES', 'Stopwell', 'Eastham', '01632 960302'),
    ('CHAINS', 'Link Brothers', 'Weston', '01632 960303'),
    ('LIGHTS', 'Nightway', 'Southgate', '01632 960304'),
    ('FRAMES', 'Tube and Lug', 'Middleton', '01632 960305'),
    ('SUNDRY', 'Workshop Supplies', 'Northport', '01632 960306');

-- The parts are trees: inside is the part that holds this one, 0 for an assembly; quantity is how many it holds.
CREATE TABLE Parts(ID integer PRIMARY KEY, name varchar(60), inside integer, quantity integer,
    supplier varchar(60) REFERENCES Suppliers(ID), price decimal(10, 2), room varchar(100), shelf varchar(60),
    stock integer, minimum integer,
    toOrder integer DEFAULT 0);
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

CREATE TABLE PartPrices(part integer REFERENCES Parts(ID), year integer, price decimal(10, 2), PRIMARY KEY(part, year));
INSERT INTO PartPrices
    SELECT p.ID, EXTRACT(year FROM s.today) - k.n, round(p.price * (1 - 0.04 * k.n), 2)
    FROM Parts p, Shop s, N k WHERE k.n <= 4;

CREATE TABLE Categories(ID integer PRIMARY KEY, name varchar(60), above integer);
INSERT INTO Categories VALUES(1, 'Clothing', 0), (2, 'Accessories', 0), (3, 'Care', 0), (4, 'Helmets', 1),
    (5, 'Gloves', 1), (6, 'Rain wear', 1), (7, 'Bags', 2), (8, 'Locks', 2), (9, 'Children''s helmets', 4),
    (10, 'Adults'' helmets', 4), (11, 'Cleaning', 3), (12, 'Repair kits', 3);

CREATE TABLE Goods(ID integer PRIMARY KEY, name varchar(60), category integer REFERENCES Categories(ID),
    price decimal(10, 2),
    room varchar(100), shelf varchar(60), stock integer);
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

CREATE TABLE Orders(ID integer PRIMARY KEY, supplier varchar(60) REFERENCES Suppliers(ID), day date, paid boolean);
INSERT INTO Orders
    SELECT 4000 + k.n, u.ID, s.today - INTERVAL ((36 - k.n) * 10) DAY, k.n < 30
    FROM Shop s, N k
        JOIN (SELECT ID, row_number() OVER (ORDER BY ID) - 1 AS place FROM Suppliers) u ON u.place = k.n % 6
    WHERE k.n BETWEEN 1 AND 36;

CREATE TABLE OrderLines(ID integer AUTO_INCREMENT PRIMARY KEY, purchase integer REFERENCES Orders(ID),
    part integer REFERENCES Parts(ID), quantity integer, price decimal(10, 2));
INSERT INTO OrderLines(purchase, part, quantity, price)
    SELECT o.ID, p.ID, 5 + (o.ID + k.n * 7) % 20, p.price
    FROM Orders o JOIN N k ON k.n <= 1
        JOIN (SELECT *, row_number() OVER (PARTITION BY supplier ORDER BY ID) - 1 AS place,
                  count(*) OVER (PARTITION BY supplier) AS places FROM Parts) p
            ON p.supplier = o.supplier AND p.place = (o.ID DIV 6 + k.n) % p.places
    ORDER BY o.ID, k.n;

-- Workshop ---------------------------------------------------------------------------------------------------------

-- A job is OPEN, then DONE, and CLOSED when it is paid.
CREATE TABLE RepairJobs(ID integer PRIMARY KEY, customer integer REFERENCES Customers(ID), bicycle varchar(100),
    mechanic varchar(60), taken date, status varchar(100), paid boolean);
INSERT INTO RepairJobs
    SELECT 3000 + k.n, 1 + (k.n * 11) % 64,
        CASE k.n % 4 WHEN 0 THEN 'Grey city bicycle' WHEN 1 THEN 'Red touring bicycle' WHEN 2 THEN 'Folding bicycle'
             ELSE 'Blue mountain bicycle' END,
        m.code, s.today - INTERVAL ((61 - k.n) * 2 - k.n % 3 DIV 2) DAY,
        CASE WHEN k.n <= 36 THEN 'CLOSED' WHEN k.n <= 48 THEN 'DONE' ELSE 'OPEN' END,
        k.n <= 36 OR (k.n <= 48 AND k.n % 3 = 0)
    FROM Shop s, N k JOIN (SELECT code, row_number() OVER (ORDER BY ID) - 1 AS place FROM Employees
        WHERE code IS NOT NULL) m ON m.place = k.n % 5
    WHERE k.n BETWEEN 1 AND 60;

CREATE TABLE Tasks(ID integer PRIMARY KEY, job integer REFERENCES RepairJobs(ID), name varchar(60), hours decimal(10,
    2));
CREATE TABLE TaskParts(ID integer AUTO_INCREMENT PRIMARY KEY, task integer REFERENCES Tasks(ID),
    part integer REFERENCES Parts(ID),
    quantity integer);
CREATE TEMPORARY TABLE TaskKinds(n integer, name varchar(60), hours decimal(10, 2), part integer, quantity integer);
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

CREATE TABLE JobPictures(ID integer AUTO_INCREMENT PRIMARY KEY, job integer REFERENCES RepairJobs(ID),
    moment varchar(100));
INSERT INTO JobPictures(job, moment)
    SELECT j.ID, m.moment FROM RepairJobs j, (SELECT 'before' AS moment UNION ALL SELECT 'after') m
    WHERE j.status <> 'OPEN' ORDER BY j.ID, m.moment DESC;

CREATE ALGORITHM = TEMPTABLE VIEW TaskSums AS
    SELECT t.ID, t.job, t.name, t.hours, t.hours * s.hourlyRate AS labour,
        (SELECT coalesce(sum(p.price * u.quantity), 0) FROM TaskParts u JOIN Parts p ON p.ID = u.part
         WHERE u.task = t.ID) AS parts
    FROM Tasks t, Shop s;
CREATE VIEW JobSums AS
    SELECT j.ID, c.name AS customer, j.customer AS customerID, j.bicycle, j.mechanic, j.taken, j.status, j.paid,
        sum(t.hours) AS hours, sum(t.labour) AS labour, sum(t.parts) AS parts
    FROM RepairJobs j JOIN Customers c ON c.ID = j.customer JOIN TaskSums t ON t.job = j.ID GROUP BY j.ID, c.ID;

CREATE TABLE Claims(ID integer PRIMARY KEY, supplier varchar(60) REFERENCES Suppliers(ID), subject varchar(100),
    opened date);
CREATE TABLE ClaimLetters(ID integer AUTO_INCREMENT PRIMARY KEY, claim integer REFERENCES Claims(ID), day date,
    subject varchar(100));
INSERT INTO Claims
    SELECT c.n, c.supplier, c.subject, s.today - INTERVAL (c.age) DAY
    FROM Shop s, (SELECT 1 AS n, 'WHEELS' AS supplier, 'Rims with cracks' AS subject, 70 AS age
        UNION ALL SELECT 2, 'LIGHTS', 'Head lamps that let in water', 45
        UNION ALL SELECT 3, 'CHAINS', 'Gear hub slips', 20) c;
INSERT INTO ClaimLetters(claim, day, subject)
    SELECT c.ID, c.opened + INTERVAL (k.n * 9) DAY,
        CASE k.n WHEN 0 THEN 'Our claim' WHEN 1 THEN 'Their answer' ELSE 'Our reply' END
    FROM Claims c JOIN N k ON k.n < 4 - c.ID ORDER BY c.ID, k.n;

-- Money ------------------------------------------------------------------------------------------------------------

-- Three receipts on each of the last ten days, before that on every eighth day.
CREATE TABLE Receipts(ID integer PRIMARY KEY, day date, section integer REFERENCES Sections(ID), paidBy varchar(100));
CREATE TABLE ReceiptLines(ID integer AUTO_INCREMENT PRIMARY KEY, receipt integer REFERENCES Receipts(ID),
    what varchar(100),
    goods integer REFERENCES Goods(ID), quantity integer, amount decimal(10, 2));
INSERT INTO Receipts
    SELECT 5000 + (109 - k.n) * 3 + c.ID,
        s.today - INTERVAL (CASE WHEN k.n < 10 THEN k.n ELSE 10 + (k.n - 10) * 8 END) DAY, c.ID,
        CASE (k.n + c.ID) % 3 WHEN 0 THEN 'Cash' WHEN 1 THEN 'Card' ELSE 'Voucher' END
    FROM N k, Shop s, Sections c WHERE k.n < 110 ORDER BY 1;
INSERT INTO ReceiptLines(receipt, what, quantity, amount)
    SELECT ID, CASE section WHEN 1 THEN 'Hire' ELSE 'Repair' END, 1,
        CASE section WHEN 1 THEN 28 + ID % 7 * 14 ELSE 18 + ID % 11 * 9 END
    FROM Receipts WHERE section < 3 ORDER BY ID;
ALTER TABLE ReceiptLines AUTO_INCREMENT = 1;
INSERT INTO ReceiptLines(receipt, what, goods, quantity, amount)
    SELECT r.ID, g.name, g.ID, 1 + (r.ID + k.n) % 2, g.price * (1 + (r.ID + k.n) % 2)
    FROM Receipts r JOIN N k ON k.n <= 1 JOIN Goods g ON g.ID = 1 + (r.ID DIV 3 + k.n * 5) % 16 WHERE r.section = 3
    ORDER BY r.ID, k.n;

CREATE VIEW Takings AS
    SELECT r.day, r.section, r.ID AS receipt, r.paidBy, l.what, l.goods, l.quantity, l.amount
    FROM Receipts r JOIN ReceiptLines l ON l.receipt = r.ID;

CREATE TABLE Costs(ID integer AUTO_INCREMENT PRIMARY KEY, section integer REFERENCES Sections(ID), day date,
    amount decimal(10, 2));
INSERT INTO Costs(section, day, amount)
    SELECT c.ID, CAST(DATE_FORMAT(s.today, '%Y-%m-01') AS date) - INTERVAL (k.n) MONTH, 90 + (c.ID * 40 + k.n * 7) % 60
    FROM Sections c, Shop s, N k WHERE k.n < 24 ORDER BY c.ID, k.n;

-- The till book has a line for each day that was closed.
CREATE TABLE TillBook(day date PRIMARY KEY, receipts integer, amount decimal(10, 2));
INSERT INTO TillBook
    SELECT day, count(DISTINCT receipt), sum(amount) FROM Takings WHERE day < (SELECT today FROM Shop) GROUP BY day;

CREATE TABLE Invoices(ID integer PRIMARY KEY, customer integer REFERENCES Customers(ID), day date, due date,
    status varchar(100), paid decimal(10, 2));
CREATE TABLE InvoiceLines(ID integer AUTO_INCREMENT PRIMARY KEY, invoice integer REFERENCES Invoices(ID),
    item varchar(100),
    quantity integer, price decimal(10, 2));
CREATE TABLE Reminders(ID integer AUTO_INCREMENT PRIMARY KEY, invoice integer REFERENCES Invoices(ID), day date);
INSERT INTO Invoices
    SELECT 7000 + k.n, 1 + (k.n * 13) % 60, s.today - INTERVAL ((21 - k.n) * 8) DAY,
        s.today - INTERVAL ((21 - k.n) * 8) DAY + INTERVAL 14 DAY,
        CASE WHEN k.n % 2 = 0 THEN 'PAID' ELSE 'UNPAID' END, 0
    FROM N k, Shop s WHERE k.n BETWEEN 1 AND 20;
INSERT INTO InvoiceLines(invoice, item, quantity, price)
    SELECT i.ID, CASE k.n WHEN 0 THEN 'Hire, days' ELSE 'Extras' END, 2 + (i.ID + k.n) % 6,
        CASE k.n WHEN 0 THEN 22 ELSE 4 END
    FROM Invoices i JOIN N k ON k.n <= 1 ORDER BY i.ID, k.n;
UPDATE Invoices SET paid = (SELECT sum(quantity * price) FROM InvoiceLines WHERE invoice = Invoices.ID)
    * CASE WHEN status = 'PAID' THEN 1 WHEN ID % 3 = 0 THEN 0.5 ELSE 0 END;
INSERT INTO Reminders(invoice, day)
    SELECT ID, due + INTERVAL 16 DAY FROM Invoices WHERE status = 'UNPAID' AND ID <= 7005 ORDER BY ID;

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

CREATE VIEW OpenHires AS SELECT * FROM HireSums WHERE status <> 'BACK';

-- The day that was given as a text.
CREATE FUNCTION dayOf(given_today varchar(11)) RETURNS date DETERMINISTIC
    RETURN STR_TO_DATE(given_today, '%d-%b-%Y');

-- The queries of the tree: ID and description ----------------------------------------------------------------------

CREATE PROCEDURE spG_HiresGoingOut(given_today varchar(11))
    SELECT h.ID, h.customer || ' at ' || h.hour || ':00' AS Hire FROM HireSums h
    WHERE h.taken = dayOf(given_today) ORDER BY h.hour, h.ID;

CREATE PROCEDURE spG_HiresDueBack(given_today varchar(11))
    SELECT h.ID, h.customer || ' at ' || h.dueHour || ':00' AS Hire FROM OpenHires h
    WHERE h.due = dayOf(given_today) ORDER BY h.dueHour, h.ID;

CREATE PROCEDURE spG_HiresLate(given_number integer, given_today varchar(11))
    SELECT h.ID, h.customer || ', due ' || h.due AS Hire FROM OpenHires h
    WHERE DATEDIFF(dayOf(given_today), h.due) > given_number ORDER BY h.due, h.ID;

CREATE PROCEDURE spG_BikeTypes()
    SELECT ID, name AS Type FROM BikeTypes ORDER BY name;

CREATE PROCEDURE spG_BikesOfType(given_key varchar(10))
    SELECT b.ID, n.name AS Bicycle FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID
    WHERE b.type = given_key AND n.inFleet ORDER BY b.ID;

CREATE PROCEDURE spG_RepairJobs(given_status varchar(10))
    SELECT j.ID, j.customer || ': ' || j.bicycle AS Job FROM JobSums j WHERE j.status = given_status
    ORDER BY j.taken, j.ID;

CREATE PROCEDURE spG_TasksOfJob(given_key integer)
    SELECT t.ID, t.name AS Task FROM Tasks t WHERE t.job = given_key ORDER BY t.ID;

CREATE PROCEDURE spG_Mechanics()
    SELECT code AS ID, name AS Mechanic FROM Employees WHERE code IS NOT NULL ORDER BY name;

CREATE PROCEDURE spG_JobsOfMechanic(given_key varchar(10))
    SELECT j.ID, j.taken || ' ' || j.bicycle AS Job FROM RepairJobs j WHERE j.mechanic = given_key
    ORDER BY j.taken DESC, j.ID;

CREATE PROCEDURE spG_PurchaseYears()
    SELECT DISTINCT DATE_FORMAT(bought, '%Y') AS ID, DATE_FORMAT(bought, '%Y') AS Year FROM Bicycles ORDER BY 1;

CREATE PROCEDURE spG_PartsBelow(given_key integer)
    SELECT p.ID, p.name AS Part FROM Parts p WHERE p.inside = given_key ORDER BY p.name;

CREATE PROCEDURE spG_CategoriesBelow(given_key integer)
    SELECT c.ID, c.name AS Category FROM Categories c WHERE c.above = given_key ORDER BY c.name;

CREATE PROCEDURE spG_Suppliers()
    SELECT ID, name AS Supplier FROM Suppliers ORDER BY name;

CREATE PROCEDURE spG_PartsOfSupplier(given_key varchar(10))
    SELECT p.ID, p.name AS Part FROM Parts p WHERE p.supplier = given_key ORDER BY p.name;

CREATE PROCEDURE spG_Initials()
    SELECT DISTINCT ascii(name) AS ID, substr(name, 1, 1) AS Initial FROM Customers ORDER BY 1;

CREATE PROCEDURE spG_CustomersByInitial(given_text varchar(60))
    SELECT c.ID, c.name AS Customer FROM Customers c WHERE substr(c.name, 1, 1) = given_text
    ORDER BY c.name;

CREATE PROCEDURE spG_HiresOfCustomer(given_key integer)
    SELECT h.ID, h.taken || ' to ' || h.due AS Hire FROM Hires h WHERE h.customer = given_key
    ORDER BY h.taken DESC, h.ID;

CREATE PROCEDURE spG_Clubs()
    SELECT ID, name AS Club FROM Clubs ORDER BY name;

CREATE PROCEDURE spG_MembersOfClub(given_key varchar(10))
    SELECT c.ID, c.name AS Customer FROM Customers c WHERE c.club = given_key ORDER BY c.name;

-- The time line: the key of a year is 2026, of a month 202603, of a day 20260305.
CREATE PROCEDURE spG_TakingsYears()
    SELECT DISTINCT DATE_FORMAT(day, '%Y') AS ID, DATE_FORMAT(day, '%Y') AS Year FROM Receipts ORDER BY 1 DESC;

CREATE PROCEDURE spG_MonthsOfYear(given_key varchar(10))
    SELECT DISTINCT DATE_FORMAT(r.day, '%Y%m') AS ID, DATE_FORMAT(r.day, '%b %Y') AS Month
    FROM Receipts r WHERE DATE_FORMAT(r.day, '%Y') = given_key ORDER BY 1;

CREATE PROCEDURE spG_DaysOfMonth(given_key varchar(10))
    SELECT DISTINCT DATE_FORMAT(day, '%Y%m%d') AS ID, CAST(day AS char) AS Day FROM Receipts
    WHERE DATE_FORMAT(day, '%Y%m') = given_key ORDER BY 1;

CREATE PROCEDURE spG_Invoices(given_status varchar(10))
    SELECT i.ID, i.customer || ', ' || i.day AS Invoice FROM InvoiceSums i WHERE i.status = given_status
    ORDER BY i.day;

CREATE PROCEDURE spG_StaffBelow(given_key integer)
    SELECT e.ID, e.name AS Name FROM Employees e WHERE e.boss = given_key ORDER BY e.name;

-- The queries of the report pages: the hire desk -------------------------------------------------------------------

CREATE PROCEDURE spW_ShopFront()
    SELECT s.ID, s.name AS Shop, s.address AS Address, s.phone AS Phone, p.image AS IMGShop
    FROM Shop s JOIN Pictures p ON p.name = 'shop';

-- A cross table of the week that ends on the day.
CREATE PROCEDURE spW_WeekSummary(given_today varchar(11))
    WITH RECURSIVE Week(day, last) AS (SELECT dayOf(given_today) - INTERVAL 6 DAY, dayOf(given_today)
        UNION ALL SELECT day + INTERVAL 1 DAY, last FROM Week WHERE day < last)
    SELECT w.day AS ID, (SELECT count(*) FROM Hires WHERE taken = w.day) AS "Hires out",
        (SELECT count(*) FROM Hires WHERE back = w.day) AS "Hires back",
        (SELECT count(*) FROM RepairJobs WHERE taken = w.day) AS "Jobs taken in",
        (SELECT coalesce(sum(amount), 0) FROM Takings WHERE day = w.day) AS Takings
    FROM Week w ORDER BY w.day;

CREATE PROCEDURE spW_HireRates()
    SELECT s.ID, s.hours AS "Opening hours", (SELECT dayRate FROM Styles WHERE ID = 1) AS "City, a day",
        (SELECT dayRate FROM Styles WHERE ID = 2) AS "Mountain, a day",
        (SELECT dayRate FROM Styles WHERE ID = 3) AS "Tandem, a day",
        (SELECT dayRate FROM Styles WHERE ID = 4) AS "Cargo, a day"
    FROM Shop s;

CREATE PROCEDURE spW_DaySheet(given_today varchar(11))
    SELECT 1 AS ID, dayOf(given_today) AS Day, (SELECT count(*) FROM Hires
        WHERE taken = dayOf(given_today)) AS "Going out",
        (SELECT count(*) FROM OpenHires WHERE due = dayOf(given_today)) AS "Due back",
        (SELECT count(*) FROM OpenHires WHERE due < dayOf(given_today)) AS Late;

CREATE PROCEDURE spW_OutAndBackByHour(given_today varchar(11))
    WITH RECURSIVE Hours(hour) AS (SELECT 9 UNION ALL SELECT hour + 1 FROM Hours WHERE hour < 17)
    SELECT hour AS ID, hour || ':00' AS Hour,
        (SELECT coalesce(sum(bicycles), 0) FROM HireSums h WHERE h.taken = dayOf(given_today)
        AND h.hour = Hours.hour) AS "Out",
        (SELECT coalesce(sum(bicycles), 0) FROM OpenHires h WHERE h.due = dayOf(given_today)
        AND h.dueHour = Hours.hour) AS Back
    FROM Hours ORDER BY ID;

CREATE PROCEDURE spW_HiresGoingOut(given_today varchar(11))
    SELECT h.ID, h.customer AS Customer, h.hour || ':00' AS Time, h.due AS "Due back", h.bicycles AS Bicycles,
        h.deposit AS Deposit
    FROM HireSums h WHERE h.taken = dayOf(given_today) ORDER BY h.hour, h.ID;

CREATE PROCEDURE spW_HireHead(given_key integer)
    SELECT h.ID, h.customer AS Customer, h.taken AS "Goes out", h.due AS "Due back", h.status AS Status,
        h.deposit AS Deposit
    FROM HireSums h WHERE h.ID = given_key;

CREATE PROCEDURE spW_HireLines(given_key integer)
    SELECT l.ID, coalesce(b.name, e.name) AS Item, coalesce(b.typeName, 'Extra') AS Kind, l.quantity AS Quantity,
        l.charge AS Charge
    FROM HireLines l LEFT JOIN BikeNames b ON b.ID = l.bicycle LEFT JOIN Extras e ON e.ID = l.extra
    WHERE l.hire = given_key ORDER BY l.ID;

CREATE PROCEDURE spW_HiresDueBack(given_today varchar(11))
    SELECT h.ID, h.customer AS Customer, h.dueHour || ':00' AS Time, h.taken AS "Went out", h.bicycles AS Bicycles
    FROM OpenHires h WHERE h.due = dayOf(given_today) ORDER BY h.dueHour, h.ID;

CREATE PROCEDURE spW_HireCharges(given_key integer)
    SELECT h.ID, c.what AS "For", c.charge AS Charge, c.paid AS Paid
    FROM Hires h JOIN (
        SELECT 1 AS place, ID AS hire, 'Deposit' AS what, deposit AS charge, deposit * depositPaid AS paid FROM Hires
        UNION ALL SELECT 2, ID, 'Bicycles and extras', charge, 0 FROM HireSums
        UNION ALL SELECT 3, ID, 'Late charges', lateCharge, 0 FROM HireSums WHERE lateCharge > 0) c ON c.hire = h.ID
    WHERE h.ID = given_key ORDER BY c.place;

CREATE PROCEDURE spW_HiresLate(given_number integer, given_today varchar(11))
    SELECT h.ID, h.customer AS Customer, c.phone AS Phone, h.due AS "Due back",
        DATEDIFF(dayOf(given_today), h.due) AS "Days late", h.bicycles AS Bicycles,
        h.lateCharge AS "Late charges"
    FROM OpenHires h JOIN Customers c ON c.ID = h.customerID
    WHERE DATEDIFF(dayOf(given_today), h.due) > given_number ORDER BY h.due, h.ID;

CREATE PROCEDURE spW_HireCustomer(given_key integer)
    SELECT c.ID, c.name AS Customer, c.phone AS Phone, h.due AS "Due back"
    FROM Hires h JOIN Customers c ON c.ID = h.customer WHERE h.ID = given_key;

CREATE PROCEDURE spW_LateCharges(given_key integer)
    SELECT l.ID, l.day AS Day, l.amount AS Charge FROM LateCharges l WHERE l.hire = given_key
    ORDER BY l.day;

CREATE PROCEDURE spW_BikesPerType()
    SELECT t.ID, t.name AS Type, count(*) AS Bicycles, sum(b.price) AS "Value when new"
    FROM BikeTypes t JOIN Bicycles b ON b.type = t.ID WHERE b.salePrice IS NULL GROUP BY t.ID ORDER BY t.name;

CREATE PROCEDURE spW_TypeHead(given_key varchar(10))
    SELECT t.ID, t.name AS Type, y.name AS Style, t.gears AS Gears, t.price AS "Price when new",
        y.dayRate AS "Rate a day"
    FROM BikeTypes t JOIN Styles y ON y.ID = t.style WHERE t.ID = given_key;

CREATE PROCEDURE spW_TypePictures(given_key varchar(10))
    SELECT v.place AS ID, v.name AS View, s.pictureFolder || 'types/' || t.ID || '-' || v.place || '.jpg' AS FILEType
    FROM BikeTypes t, Shop s, (SELECT 1 AS place, 'Left side' AS name UNION ALL SELECT 2, 'Right side'
        UNION ALL SELECT 3, 'From behind') v
    WHERE t.ID = given_key ORDER BY v.place;

CREATE PROCEDURE spW_BikeCard(given_key integer)
    SELECT b.ID, n.name AS Bicycle, n.typeName AS Type, b.size AS Size, b.bought AS Bought, b.km AS Kilometres,
        p.image AS IMGBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID JOIN Pictures p ON p.name = 'bicycle'
    WHERE b.ID = given_key;

CREATE PROCEDURE spW_BikeHiresShaped(given_key integer)
    SELECT h.ID, h.customer AS Customer, h.taken AS "From", h.due AS "To", e.name AS Extra, x.quantity AS Quantity,
        x.charge AS Charge
    FROM HireSums h JOIN HireLines l ON l.hire = h.ID
        LEFT JOIN (HireLines x JOIN Extras e ON e.ID = x.extra) ON x.hire = h.ID
    WHERE l.bicycle = given_key ORDER BY h.taken DESC, h.ID, x.ID;

CREATE PROCEDURE spW_FreeCrossTab(given_today varchar(11))
    SELECT n.styleName AS ID, sum(b.size = 'S') AS Small, sum(b.size = 'M') AS Medium, sum(b.size = 'L') AS Large
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID
    WHERE n.inFleet AND b.ID NOT IN (SELECT l.bicycle FROM HireLines l JOIN Hires h ON h.ID = l.hire
        WHERE l.bicycle IS NOT NULL AND h.taken <= dayOf(given_today) AND h.status <> 'BACK')
    GROUP BY n.style, n.styleName ORDER BY n.style;

CREATE PROCEDURE spW_FreeOfStyle(given_text varchar(60))
    SELECT b.ID, n.name AS Bicycle, b.size AS Size, n.dayRate AS "Rate a day"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID
    WHERE n.inFleet AND n.styleName = given_text AND b.ID NOT IN (SELECT l.bicycle FROM HireLines l
        JOIN Hires h ON h.ID = l.hire WHERE l.bicycle IS NOT NULL AND h.status <> 'BACK')
    ORDER BY b.ID;

CREATE PROCEDURE spW_StyleLimits(given_text varchar(60))
    SELECT y.ID, y.name AS Style, y.riders AS Riders, y.limitKg AS "Kilograms in all" FROM Styles y
    WHERE y.name = given_text;

CREATE PROCEDURE spW_CafeVouchers(given_today varchar(11))
    SELECT c.ID, c.name AS Cafe, count(v.ID) AS Vouchers, coalesce(sum(v.value), 0) AS Value
    FROM Cafes c
        LEFT JOIN Vouchers v ON v.cafe = c.ID AND v.day BETWEEN CAST(DATE_FORMAT(dayOf(given_today),
        '%Y-%m-01') AS date) AND dayOf(given_today)
    GROUP BY c.ID ORDER BY c.name;

-- The workshop -----------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_Notices(given_number integer)
    SELECT b.ID, b.place AS Board, b.notice AS Notice, b.putUp AS "Put up"
    FROM Boards b WHERE b.ID = given_number;

CREATE PROCEDURE spW_JobsByWeekday()
    SELECT DAYOFWEEK(taken) - 1 AS ID, DATE_FORMAT(taken, '%a') AS Weekday, count(*) AS Jobs
    FROM RepairJobs GROUP BY 1, 2 ORDER BY 1;

CREATE PROCEDURE spW_RepairJobs(given_status varchar(10))
    SELECT j.ID, j.customer AS Customer, j.bicycle AS Bicycle, j.taken AS "Taken in", j.labour AS Labour,
        j.parts AS Parts
    FROM JobSums j WHERE j.status = given_status ORDER BY j.taken, j.ID;

CREATE PROCEDURE spW_JobHead(given_key integer)
    SELECT j.ID, c.name AS Customer, j.bicycle AS Bicycle, e.name AS Mechanic, j.taken AS "Taken in",
        j.status AS Status
    FROM RepairJobs j JOIN Customers c ON c.ID = j.customer JOIN Employees e ON e.code = j.mechanic
    WHERE j.ID = given_key;

CREATE PROCEDURE spW_JobCosts(given_key integer)
    SELECT t.ID, t.name AS Task, t.hours AS Hours, t.labour AS Labour, t.parts AS Parts
    FROM TaskSums t WHERE t.job = given_key ORDER BY t.ID;

CREATE PROCEDURE spW_TaskHead(given_key integer)
    SELECT t.ID, t.name AS Task, j.bicycle AS Bicycle, e.name AS Mechanic, t.hours AS Hours
    FROM Tasks t JOIN RepairJobs j ON j.ID = t.job JOIN Employees e ON e.code = j.mechanic
    WHERE t.ID = given_key;

CREATE PROCEDURE spW_TaskParts(given_key integer)
    SELECT p.ID, p.name AS Part, p.price AS Price, u.quantity AS Quantity, p.price * u.quantity AS Cost
    FROM TaskParts u JOIN Parts p ON p.ID = u.part WHERE u.task = given_key ORDER BY u.ID;

CREATE PROCEDURE spW_ClosePaidJobs()
    UPDATE RepairJobs SET status = 'CLOSED' WHERE status = 'DONE' AND paid;

CREATE PROCEDURE spW_JobTasksShaped(given_key integer)
    SELECT t.ID, t.name AS Task, t.hours AS Hours, p.name AS Part, u.quantity AS Quantity,
        p.price * u.quantity AS Cost
    FROM Tasks t JOIN TaskParts u ON u.task = t.ID JOIN Parts p ON p.ID = u.part
    WHERE t.job = given_key ORDER BY t.ID, u.ID;

CREATE PROCEDURE spW_JobPictures(given_key integer)
    SELECT p.ID, p.moment AS Moment, s.pictureFolder || 'jobs/' || p.job || '-' || p.moment || '.jpg' AS FILEJob
    FROM JobPictures p, Shop s WHERE p.job = given_key ORDER BY p.ID;

CREATE PROCEDURE spW_HoursByMechanic()
    SELECT e.code AS ID, e.name AS Mechanic, count(*) AS Jobs, sum(j.hours) AS Hours
    FROM Employees e JOIN JobSums j ON j.mechanic = e.code GROUP BY e.ID ORDER BY e.name;

CREATE PROCEDURE spW_JobsOfMechanic(given_key varchar(10))
    SELECT j.ID, j.bicycle AS Bicycle, j.status AS Status, j.hours AS Hours, j.labour AS Labour
    FROM JobSums j WHERE j.mechanic = given_key ORDER BY j.taken DESC, j.ID;

-- The week from Monday to Sunday that holds the day.
CREATE PROCEDURE spW_RotaCrossTab(given_today varchar(11))
    SELECT r.mechanic AS ID, sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 1 THEN r.hours ELSE 0 END) AS Mon,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 2 THEN r.hours ELSE 0 END) AS Tue,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 3 THEN r.hours ELSE 0 END) AS Wed,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 4 THEN r.hours ELSE 0 END) AS Thu,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 5 THEN r.hours ELSE 0 END) AS Fri,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 6 THEN r.hours ELSE 0 END) AS Sat,
        sum(CASE (DAYOFWEEK(r.day) - 1) WHEN 0 THEN r.hours ELSE 0 END) AS Sun
    FROM Rota r
    WHERE r.day BETWEEN dayOf(given_today) - INTERVAL WEEKDAY(dayOf(given_today)) DAY
        AND dayOf(given_today) + INTERVAL (6 - WEEKDAY(dayOf(given_today))) DAY
    GROUP BY r.mechanic ORDER BY r.mechanic;

CREATE PROCEDURE spW_ClaimsShaped()
    SELECT c.ID, s.name AS Supplier, c.subject AS Claim, c.opened AS Opened, l.day AS Day, l.subject AS Letter
    FROM Claims c JOIN Suppliers s ON s.ID = c.supplier JOIN ClaimLetters l ON l.claim = c.ID ORDER BY c.ID, l.day;

-- The fleet --------------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_FleetFigures()
    SELECT 1 AS ID, sum(salePrice IS NULL) AS "Bicycles for hire", sum(salePrice IS NOT NULL) AS "Bicycles for sale",
        (SELECT sum(bicycles) FROM HireSums WHERE status = 'OUT') AS "Out now", sum(km) AS "Kilometres in all"
    FROM Bicycles;

CREATE PROCEDURE spW_FleetPictures()
    SELECT b.ID, n.name AS Bicycle, s.pictureFolder || 'bicycles/' || b.ID || '.jpg' AS FILEBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s WHERE n.inFleet ORDER BY b.ID;

-- Each bicycle of the fleet runs 15 kilometres a day.
CREATE PROCEDURE spW_UpdateMileage(given_today varchar(11))
    UPDATE Bicycles SET km = km + 15 * DATEDIFF(dayOf(given_today), kmOn), kmOn = dayOf(given_today)
    WHERE salePrice IS NULL AND kmOn < dayOf(given_today);

CREATE PROCEDURE spW_ServiceDue(given_number integer, given_today varchar(11))
    SELECT b.ID, n.name AS Bicycle, DATEDIFF(dayOf(given_today), b.serviced) AS "Days since service",
        b.km - b.servicedAtKm AS "Kilometres since service"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID
    WHERE n.inFleet AND b.km - b.servicedAtKm >= given_number ORDER BY 4 DESC, b.ID;

CREATE PROCEDURE spW_SpentByYear()
    SELECT DATE_FORMAT(bought, '%Y') AS ID, DATE_FORMAT(bought, '%Y') AS Year, count(*) AS Bicycles, sum(price) AS Spent
    FROM Bicycles GROUP BY 1, 2 ORDER BY 1;

-- A bicycle loses a sixth of its price each year.
CREATE PROCEDURE spW_BikesBoughtIn(given_key varchar(10))
    SELECT b.ID, n.name AS Bicycle, b.bought AS Bought, b.price AS Price,
        round(b.price * greatest(0, 1 - DATEDIFF(s.today, b.bought) / 365 / 6)) AS "Worth now"
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s
    WHERE DATE_FORMAT(b.bought, '%Y') = given_key ORDER BY b.bought, b.ID;

CREATE PROCEDURE spW_ForSalePictures()
    SELECT b.ID, n.name AS Bicycle, s.pictureFolder || 'bicycles/' || b.ID || '.jpg' AS FILEBicycle
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID, Shop s WHERE NOT n.inFleet ORDER BY b.ID;

CREATE PROCEDURE spW_ForSale()
    SELECT b.ID, n.name AS Bicycle, n.typeName AS Type, b.size AS Size, b.salePrice AS Price
    FROM Bicycles b JOIN BikeNames n ON n.ID = b.ID WHERE NOT n.inFleet ORDER BY b.salePrice, b.ID;

-- The stock --------------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_StockValue()
    SELECT room AS ID, room AS Room, sum(stock) AS Pieces, sum(value) AS Value FROM Stored GROUP BY room ORDER BY room;

CREATE PROCEDURE spW_PartsBelow(given_key integer)
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.quantity AS Quantity, p.price * p.quantity AS Cost
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier WHERE p.inside = given_key ORDER BY p.name;

CREATE PROCEDURE spW_PartCard(given_key integer)
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.price AS Price, p.room || ' ' || p.shelf AS Place,
        p.stock AS "In stock", i.image AS IMGPart
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier JOIN Pictures i ON i.name = 'part'
    WHERE p.ID = given_key;

CREATE PROCEDURE spW_GoodsOfCategory(given_key integer)
    SELECT g.ID, g.name AS Goods, g.price AS Price, g.stock AS "In stock"
    FROM Goods g JOIN CategoryBranches b ON b.category = g.category WHERE b.top = given_key ORDER BY g.name;

CREATE PROCEDURE spW_SalesBelow(given_key integer)
    SELECT c.ID, c.name AS Category, coalesce(sum(t.amount), 0) AS Sales
    FROM Categories c JOIN CategoryBranches b ON b.top = c.ID
        LEFT JOIN Goods g ON g.category = b.category LEFT JOIN Takings t ON t.goods = g.ID
    WHERE c.above = given_key GROUP BY c.ID ORDER BY c.name;

CREATE PROCEDURE spW_OrdersCrossTab()
    SELECT o.supplier AS ID, sum(CASE DATE_FORMAT(o.day, '%m') WHEN '01' THEN l.quantity * l.price ELSE 0 END) AS Jan,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '02' THEN l.quantity * l.price ELSE 0 END) AS Feb,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '03' THEN l.quantity * l.price ELSE 0 END) AS Mar,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '04' THEN l.quantity * l.price ELSE 0 END) AS Apr,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '05' THEN l.quantity * l.price ELSE 0 END) AS May,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '06' THEN l.quantity * l.price ELSE 0 END) AS Jun,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '07' THEN l.quantity * l.price ELSE 0 END) AS Jul,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '08' THEN l.quantity * l.price ELSE 0 END) AS Aug,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '09' THEN l.quantity * l.price ELSE 0 END) AS Sep,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '10' THEN l.quantity * l.price ELSE 0 END) AS Oct,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '11' THEN l.quantity * l.price ELSE 0 END) AS Nov,
        sum(CASE DATE_FORMAT(o.day, '%m') WHEN '12' THEN l.quantity * l.price ELSE 0 END) AS "Dec"
    FROM Orders o JOIN OrderLines l ON l.purchase = o.ID GROUP BY o.supplier ORDER BY o.supplier;

CREATE PROCEDURE spW_SupplierHead(given_key varchar(10))
    SELECT s.ID, s.name AS Supplier, s.town AS Town, s.phone AS Phone
    FROM Suppliers s WHERE s.ID = given_key;

CREATE PROCEDURE spW_OrdersShaped(given_key varchar(10))
    SELECT o.ID, o.day AS Ordered, CASE WHEN o.paid THEN 'Yes' ELSE 'No' END AS Paid, p.name AS Part,
        l.quantity AS Quantity, l.quantity * l.price AS Amount
    FROM Orders o JOIN OrderLines l ON l.purchase = o.ID JOIN Parts p ON p.ID = l.part
    WHERE o.supplier = given_key ORDER BY o.day DESC, l.ID;

CREATE PROCEDURE spW_PartPrices(given_key integer)
    SELECT p.year AS ID, p.year AS Year, p.price AS Price FROM PartPrices p WHERE p.part = given_key
    ORDER BY p.year;

-- Orders what is missing to the minimum, and a reserve for the given number of days: one piece for each ten days.
CREATE PROCEDURE spW_SetReorder(given_number integer, given_today varchar(11))
    UPDATE Parts SET toOrder = CASE WHEN stock < minimum THEN minimum - stock + given_number DIV 10 ELSE 0 END;

CREATE PROCEDURE spW_PartsToReorder()
    SELECT p.ID, p.name AS Part, s.name AS Supplier, p.stock AS "In stock", p.minimum AS Minimum,
        p.toOrder AS "To order"
    FROM Parts p JOIN Suppliers s ON s.ID = p.supplier WHERE p.stock < p.minimum ORDER BY s.name, p.name;

CREATE PROCEDURE spW_StockByShelf()
    SELECT shelf AS ID, room || ' ' || shelf AS Shelf, sum(stock) AS Pieces, sum(value) AS Value
    FROM Stored GROUP BY shelf, room ORDER BY shelf;

-- The customers ----------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_CustomerFigures()
    SELECT 1 AS ID, count(*) AS Customers, count(club) AS "In a club or company",
        (SELECT count(*) FROM Hires) AS Hires
    FROM Customers;

CREATE PROCEDURE spW_CustomersPerInitial()
    SELECT ascii(name) AS ID, substr(name, 1, 1) AS Initial, count(*) AS Customers FROM Customers GROUP BY 1, 2
    ORDER BY 1;

CREATE PROCEDURE spW_CustomersByInitial(given_text varchar(60))
    SELECT c.ID, c.name AS Customer, c.since AS Since, count(h.ID) AS Hires, sum(h.charge) AS Charges
    FROM Customers c JOIN HireSums h ON h.customerID = c.ID
    WHERE substr(c.name, 1, 1) = given_text GROUP BY c.ID ORDER BY c.name;

CREATE PROCEDURE spW_CustomerHead(given_key integer)
    SELECT c.ID, c.name AS Customer, c.phone AS Phone, c.since AS Since, b.name AS Club
    FROM Customers c LEFT JOIN Clubs b ON b.ID = c.club WHERE c.ID = given_key;

CREATE PROCEDURE spW_HiresOfCustomer(given_key integer)
    SELECT h.ID, h.taken AS "From", h.due AS "To", h.bicycles AS Bicycles, h.charge AS Charge
    FROM HireSums h WHERE h.customerID = given_key ORDER BY h.taken DESC, h.ID;

CREATE PROCEDURE spW_CustomerJobsShaped(given_key integer)
    SELECT j.ID, j.bicycle AS Bicycle, j.taken AS "Taken in", t.name AS Task, t.hours AS Hours
    FROM RepairJobs j JOIN Tasks t ON t.job = j.ID WHERE j.customer = given_key
    ORDER BY j.taken DESC, t.ID;

CREATE PROCEDURE spW_ClubDiscounts()
    SELECT b.ID, b.name AS Club, count(h.ID) AS Hires, round(sum(h.charge) * b.discount / 100, 2) AS Discount
    FROM Clubs b JOIN Customers c ON c.club = b.ID JOIN HireSums h ON h.customerID = c.ID GROUP BY b.ID
    ORDER BY b.name;

CREATE PROCEDURE spW_ClubHead(given_key varchar(10))
    SELECT b.ID, b.name AS Club, b.contact AS Contact, b.discount || ' %' AS Discount, b.since AS Since
    FROM Clubs b WHERE b.ID = given_key;

CREATE PROCEDURE spW_ClubHiresByMonth(given_key varchar(10))
    SELECT DATE_FORMAT(h.taken, '%Y%m') AS ID, DATE_FORMAT(h.taken, '%Y-%m') AS Month, count(*) AS Hires
    FROM Hires h JOIN Customers c ON c.ID = h.customer WHERE c.club = given_key GROUP BY 1, 2 ORDER BY 1;

CREATE PROCEDURE spW_DepositsOwed()
    SELECT h.ID, h.customer AS Customer, h.taken AS "Goes out", h.deposit AS Deposit FROM OpenHires h
    WHERE NOT h.depositPaid ORDER BY h.taken, h.ID;

CREATE PROCEDURE spW_NewCustomers(given_today varchar(11))
    SELECT c.ID, c.name AS Customer, c.since AS Since, h.ID AS "First hire", h.charge AS Charge
    FROM Customers c JOIN HireSums h ON h.ID = (SELECT min(f.ID) FROM Hires f WHERE f.customer = c.ID)
    WHERE c.since BETWEEN CAST(DATE_FORMAT(dayOf(given_today), '%Y-%m-01') AS date) AND dayOf(given_today)
        ORDER BY c.since, c.ID;

-- The accounts -----------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_TakingsByMonth(given_number integer, given_today varchar(11))
    SELECT DATE_FORMAT(t.day, '%Y%m') AS ID, DATE_FORMAT(t.day, '%Y-%m') AS Month, sum(t.amount) AS Takings
    FROM Takings t WHERE t.day BETWEEN CAST(DATE_FORMAT(dayOf(given_today),
        '%Y-%m-01') AS date) - INTERVAL (given_number - 1) MONTH AND dayOf(given_today)
    GROUP BY 1, 2 ORDER BY 1;

CREATE PROCEDURE spW_TakingsCrossTab()
    SELECT DATE_FORMAT(day, '%Y') AS ID, sum(CASE section WHEN 1 THEN amount ELSE 0 END) AS Hire,
        sum(CASE section WHEN 2 THEN amount ELSE 0 END) AS Repairs,
        sum(CASE section WHEN 3 THEN amount ELSE 0 END) AS Sales
    FROM Takings GROUP BY 1 ORDER BY 1;

CREATE PROCEDURE spW_TakingsOfYear(given_key varchar(10))
    SELECT DATE_FORMAT(t.day, '%Y%m') AS ID, DATE_FORMAT(t.day, '%b') AS Month,
        sum(CASE t.section WHEN 1 THEN t.amount ELSE 0 END) AS Hire,
        sum(CASE t.section WHEN 2 THEN t.amount ELSE 0 END) AS Repairs,
        sum(CASE t.section WHEN 3 THEN t.amount ELSE 0 END) AS Sales
    FROM Takings t
    WHERE DATE_FORMAT(t.day, '%Y') = given_key GROUP BY 1, 2 ORDER BY 1;

CREATE PROCEDURE spW_TakingsOfMonth(given_key varchar(10))
    SELECT DATE_FORMAT(day, '%Y%m%d') AS ID, day AS Day, sum(CASE section WHEN 1 THEN amount ELSE 0 END) AS Hire,
        sum(CASE section WHEN 2 THEN amount ELSE 0 END) AS Repairs,
        sum(CASE section WHEN 3 THEN amount ELSE 0 END) AS Sales
    FROM Takings WHERE DATE_FORMAT(day, '%Y%m') = given_key GROUP BY 1, 2 ORDER BY 1;

CREATE PROCEDURE spW_ReceiptsShaped(given_key varchar(10))
    SELECT t.receipt AS ID, s.name AS Section, t.paidBy AS "Paid by", t.what AS Item, t.quantity AS Quantity,
        t.amount AS Amount
    FROM Takings t JOIN Sections s ON s.ID = t.section
    WHERE DATE_FORMAT(t.day, '%Y%m%d') = given_key ORDER BY t.receipt, t.what;

CREATE PROCEDURE spW_MoneyOwed(given_today varchar(11))
    SELECT 1 AS ID, (SELECT sum(amount - paid) FROM InvoiceSums WHERE day <= dayOf(given_today)) AS "Owed to us",
        (SELECT sum(amount - paid) FROM InvoiceSums WHERE due < dayOf(given_today)) AS "Of that overdue",
        (SELECT sum(l.quantity * l.price) FROM Orders o JOIN OrderLines l ON l.purchase = o.ID
         WHERE NOT o.paid AND o.day <= dayOf(given_today)) AS "Owed by us";

-- Reminds of invoices that are overdue by more than the given number of days, once each.
CREATE PROCEDURE spW_WriteReminders(given_number integer, given_today varchar(11))
    INSERT INTO Reminders(invoice, day)
        SELECT i.ID, dayOf(given_today) FROM Invoices i
        WHERE i.status = 'UNPAID' AND DATEDIFF(dayOf(given_today), i.due) > given_number
            AND i.ID NOT IN (SELECT invoice FROM Reminders)
        ORDER BY i.ID;

CREATE PROCEDURE spW_Invoices(given_status varchar(10))
    SELECT i.ID, i.customer AS Customer, i.day AS Day, i.amount AS Amount, i.paid AS Paid
    FROM InvoiceSums i WHERE i.status = given_status ORDER BY i.day;

CREATE PROCEDURE spW_InvoiceHead(given_key integer)
    SELECT i.ID, i.customer AS Customer, i.day AS Day, i.due AS Due, i.status AS Status, i.amount - i.paid AS Owed
    FROM InvoiceSums i WHERE i.ID = given_key;

CREATE PROCEDURE spW_InvoiceLines(given_key integer)
    SELECT l.ID, l.item AS Item, l.quantity AS Quantity, l.price AS Price, l.quantity * l.price AS Amount
    FROM InvoiceLines l WHERE l.invoice = given_key ORDER BY l.ID;

CREATE PROCEDURE spW_DepositsHeld()
    SELECT h.ID, h.customer AS Customer, h.due AS "Due back", h.deposit AS Deposit FROM OpenHires h
    WHERE h.depositPaid ORDER BY h.due, h.ID;

CREATE PROCEDURE spW_ProfitBySection()
    SELECT s.ID, s.name AS Section, i.amount AS Income, c.amount AS Costs, i.amount - c.amount AS Profit
    FROM Sections s JOIN (SELECT section, sum(amount) AS amount FROM Takings GROUP BY section) i ON i.section = s.ID
        JOIN (SELECT section, sum(amount) AS amount FROM Costs GROUP BY section) c ON c.section = s.ID
    ORDER BY s.ID;

CREATE PROCEDURE spW_CloseDay(given_today varchar(11))
    REPLACE INTO TillBook
        SELECT day, count(DISTINCT receipt), sum(amount) FROM Takings WHERE day = dayOf(given_today) GROUP BY day;

CREATE PROCEDURE spW_TillCount(given_today varchar(11))
    SELECT t.paidBy AS ID, t.paidBy AS "Paid by", count(DISTINCT t.receipt) AS Receipts, sum(t.amount) AS Amount
    FROM Takings t WHERE t.day = dayOf(given_today) GROUP BY t.paidBy ORDER BY t.paidBy;

CREATE PROCEDURE spW_AddLateCharges(given_today varchar(11))
    INSERT IGNORE INTO LateCharges(hire, day, amount)
        SELECT ID, dayOf(given_today), 10 FROM Hires WHERE status = 'OUT' AND due < dayOf(given_today) ORDER BY ID;

-- The staff --------------------------------------------------------------------------------------------------------

CREATE PROCEDURE spW_StaffPictures()
    SELECT e.ID, e.name AS Name, s.pictureFolder || 'staff/' || e.ID || '.jpg' AS FILEStaff FROM Employees e, Shop s
    ORDER BY e.name;

-- The card of the person with this key; with the key 0, of the one who has no boss.
CREATE PROCEDURE spW_StaffCard(given_key integer)
    SELECT e.ID, e.name AS Name, e.role AS Role, e.hours AS "Hours a week", p.image AS IMGPerson
    FROM Employees e JOIN Pictures p ON p.name = 'person'
    WHERE e.ID = given_key OR (given_key = 0 AND e.boss = 0);

CREATE PROCEDURE spW_StaffBelow(given_key integer)
    SELECT e.ID, e.name AS Name, e.role AS Role, e.hours AS "Hours a week", e.hours * e.rate AS "Pay a week"
    FROM Employees e WHERE e.boss = given_key ORDER BY e.name;

-- The days off of the last year.
CREATE PROCEDURE spW_HolidayCrossTab()
    SELECT e.name AS ID, sum(DATE_FORMAT(h.day, '%m') = '01') AS Jan, sum(DATE_FORMAT(h.day, '%m') = '02') AS Feb,
        sum(DATE_FORMAT(h.day, '%m') = '03') AS Mar, sum(DATE_FORMAT(h.day, '%m') = '04') AS Apr,
        sum(DATE_FORMAT(h.day, '%m') = '05') AS May, sum(DATE_FORMAT(h.day, '%m') = '06') AS Jun,
        sum(DATE_FORMAT(h.day, '%m') = '07') AS Jul, sum(DATE_FORMAT(h.day, '%m') = '08') AS Aug,
        sum(DATE_FORMAT(h.day, '%m') = '09') AS Sep, sum(DATE_FORMAT(h.day, '%m') = '10') AS Oct,
        sum(DATE_FORMAT(h.day, '%m') = '11') AS Nov, sum(DATE_FORMAT(h.day, '%m') = '12') AS "Dec"
    FROM Employees e JOIN Holidays h ON h.employee = e.ID GROUP BY e.ID ORDER BY e.name;

CREATE PROCEDURE spW_CertificatesShaped()
    SELECT e.ID, e.name AS Name, e.role AS Role, c.name AS Certificate, c.passed AS Passed,
        c.passed + INTERVAL (c.validYears) YEAR AS "Valid until"
    FROM Employees e JOIN Certificates c ON c.employee = e.ID ORDER BY e.name, c.name;

-- The two tables of the wizard, for its files ----------------------------------------------------------------------

CREATE TABLE XST1(ID integer PRIMARY KEY, descriptionIs varchar(255), typeIs varchar(1), parentIs integer,
    queryIs varchar(255), parmIs varchar(10), iconIs varchar(50), roleIs varchar(10));
CREATE TABLE XST2(ID integer PRIMARY KEY, XST1 integer, seqNo integer, titleIs varchar(255), queryIs varchar(255),
    parmIs varchar(10), typeIs varchar(1), formIs integer, colsAre text, extra varchar(255));

-- SPDX-License-Identifier: MIT
-- What a user could do instead, in sqlite3: import and index both files, count the children of
-- each node as the rules need them, renumber both tables in tree order, export them.
-- run as: sqlite3 -cmd ".cd FOLDER" :memory: < rival.sql, with nodes.csv and paragraphs.csv in FOLDER
.mode csv
.timer on
.print load
CREATE TABLE XST1(ID INTEGER, descriptionIs, typeIs, parentIs INTEGER, queryIs, parmIs, iconIs, roleIs);
CREATE TABLE XST2(ID INTEGER, XST1 INTEGER, seqNo INTEGER, titleIs, queryIs, parmIs, typeIs, formIs INTEGER, colsAre, extra);
.import --skip 1 nodes.csv XST1
.import --skip 1 paragraphs.csv XST2
CREATE INDEX nodeIDs ON XST1(ID);
CREATE INDEX parents ON XST1(parentIs);
CREATE INDEX paragraphIDs ON XST2(ID);
CREATE INDEX pages ON XST2(XST1);
.print walk
SELECT sum(id * depth) FROM (
  WITH RECURSIVE walk(id, depth) AS (
    SELECT ID, 0 FROM XST1 WHERE parentIs = 0
    UNION ALL
    SELECT XST1.ID, walk.depth + 1 FROM walk JOIN XST1 ON XST1.parentIs = walk.id ORDER BY 2 DESC)
  SELECT id, depth FROM walk);
.print children
SELECT count(*), max(children) FROM (
  SELECT (SELECT count(*) FROM XST1 AS child WHERE child.parentIs = XST1.ID) AS children FROM XST1);
.print renumber
CREATE TABLE renumbered(new INTEGER PRIMARY KEY, old INTEGER);
INSERT INTO renumbered(old)
  WITH RECURSIVE walk(id, depth) AS (
    SELECT ID, 0 FROM XST1 WHERE parentIs = 0
    UNION ALL
    SELECT XST1.ID, walk.depth + 1 FROM walk JOIN XST1 ON XST1.parentIs = walk.id ORDER BY 2 DESC)
  SELECT id FROM walk;
CREATE INDEX olds ON renumbered(old);
UPDATE XST2 SET XST1 = (SELECT new FROM renumbered WHERE old = XST1);
UPDATE XST1 SET parentIs = coalesce((SELECT new FROM renumbered WHERE old = parentIs), 0),
                ID = (SELECT new FROM renumbered WHERE old = ID);
.print export
.once nodes.out
SELECT * FROM XST1 ORDER BY ID;
.once paragraphs.out
SELECT * FROM XST2;

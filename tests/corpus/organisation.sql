-- Lookup lists, crews, sites, locations, cost centres, employees, suppliers.

-- name: new lookup item
-- key: ItemID
Insert into tblIndicator(ParentId,ItemName,Show,FSize) values(10,'Chains', 1,0);
-- row 1: 10 | Chains | -1 | 0
select ParentID, ItemName, Show, FSize from tblIndicator where ItemID = {key};

-- name: parent of an item
-- rows: 1
-- row 1: 131
select * from tblindicator where itemid = (select parentid  from tblindicator where itemid=133);

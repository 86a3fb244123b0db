-- database: own
-- Tables made and changed: by the import, by the update of a release. Each case has a database of its
-- own and runs outside a transaction.

-- name: a table with columns of all kinds
CREATE TABLE tblExtra (Id counter, Title text(50) not null, Amount currency, Done yesno, [When]
datetime, Made datetime default Date(), Remark memo, Hours double, Small short, Big long, Picture
longbinary, Rate single, Code nvarchar(5) default 'x', Flag integer default 0, constraint pkExtra
primary key (Id));
-- key: Id
insert into tblExtra(Title,Amount,Done,[When],Remark,Hours,Small,Big,Rate)
values('Ann''s','12.5','1',#3/15/2024 9:30:00 AM#,'long','1.25','3','70000',0.5);
-- row 1: 1 | Ann's | 12.5 | -1 | #03-15-2024 09:30# | #03-15-2024# | long | 1.25 | 3 | 70000 | null | 0.5 | x | 0
select Id, Title, Amount, Done, [When], Made, Remark, Hours, Small, Big, Picture, Rate, Code, Flag from
tblExtra;
-- error: 0x80040E21
insert into tblExtra(Amount) values(1);
-- changes: 1
update tblExtra set Done = '0', Amount = Amount + 1 where Id = 1;
-- row 1: 0 | 13.5
select Done, Amount from tblExtra;

-- name: new columns
ALTER TABLE tblPart ADD COLUMN Shelf text(20);
-- row 1: null
select Shelf from tblPart where PartID = 'P-100';
alter table tblPart add Reviewed yesno;
-- row 1: 0
select Reviewed from tblPart where PartID = 'P-100';
-- changes: 1
update tblPart set Shelf = 'A''1', Reviewed = '1' where PartID = 'P-100';
-- row 1: A'1 | -1
select Shelf, Reviewed from tblPart where PartID = 'P-100';
alter table tblPart add column Weight double, Checked datetime;
-- changes: 1
update tblPart set Weight = '2.5', Checked = #3/14/24# where PartID = 'P-100';
-- row 1: 2.5 | #03-14-2024#
select Weight, Checked from tblPart where PartID = 'P-100';

-- name: wider text
-- error: 0x80040E57
update tblPart set Bin = '1234567890123456789012345678901234567890' where PartID = 'P-100';
ALTER TABLE tblPart ALTER COLUMN Bin text(60);
-- changes: 1
update tblPart set Bin = '1234567890123456789012345678901234567890' where PartID = 'P-100';

-- database: own
-- Tables made and changed: by the import, by the update of a release. Each case has a database of its
-- own and runs outside a transaction.

-- name: the handheld's map of numbers
-- error: 0x80040E37
Select * from tblWotemp;
Create table tblWotemp( strname nvarchar(1), strid nvarchar(15), strno nvarchar(15));
-- rows: 0
Select * from tblWotemp;
-- error: 0x80040E14
Create table tblWotemp( strname nvarchar(1), strid nvarchar(15), strno nvarchar(15));
-- changes: 1
insert into tblWotemp(strname,strid,strno) values('W','HH-1','17');
-- changes: 1
insert into tblWotemp(strname,strid,strno) values('S','HH-1',18);
-- rows: 1
-- columns: strname | strid | strno
-- row 1: W | HH-1 | '17'
Select * from tblWotemp where strname = 'w' and strID = 'hh-1';
-- error: 0x80040E57
insert into tblWotemp(strname,strid,strno) values('WW','HH-2','19');
-- changes: 2
delete * from tblWotemp;
-- rows: 0
Select * from tblWotemp;

-- name: the changes of a release
create table tblChanges (Id counter, DBversion long, squence long, Status yesno, QType text(20),
TableName text(60), DbQuery memo, [Value] text(100), ParentId text(60), EndString text(20), FieldName
text(60), constraint pkChanges primary key (Id));
-- changes: 1
insert into tblChanges(DBversion,squence,QType,TableName,DbQuery)
values(99,1,'ALTER','','alter table tblPart add column a text(10)');
-- changes: 1
insert into tblChanges(DBversion,squence,QType,TableName,DbQuery,[Value])
values(123,2,'INSERT','tblSysOption','insert into tblSysOption(SysOption,itemValue)
values(''X'',''1'')','X');
-- changes: 1
insert into tblChanges(DBversion,squence,QType,Status) values(123,1,'CREATE',True);
-- rows: 2
-- row 1: 1 | 99
-- row 2: 2 | 123
SELECT * FROM tblChanges WHERE DBversion > 0 And  Status=False ORDER BY DBversion  , squence;
-- rows: 1
SELECT * FROM tblChanges WHERE DBversion > 99 And Status=False ORDER BY DBversion , squence;
-- changes: 1
Update tblChanges set Status=True Where Id=1;
-- rows: 1
SELECT * FROM tblChanges WHERE DBversion > 0 And  Status=False ORDER BY DBversion  , squence;

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

-- name: a table that exists already
-- error: 0x80040E14
CREATE TABLE tblPart (PartID nvarchar(30));

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

-- name: a statement that ran before a column was added runs after it
-- rows: 5
select * from tblPart;
alter table tblPart add column Shelf text(20);
-- rows: 5
select * from tblPart where Shelf is null;

-- name: wider text
-- error: 0x80040E57
update tblPart set Bin = '1234567890123456789012345678901234567890' where PartID = 'P-100';
ALTER TABLE tblPart ALTER COLUMN Bin text(60);
-- changes: 1
update tblPart set Bin = '1234567890123456789012345678901234567890' where PartID = 'P-100';

-- name: a column that goes
ALTER TABLE tblPart DROP COLUMN Bin;
-- error: 0x80040E10
select Bin from tblPart;

-- name: an index and a table that go
create index ixPartBin on tblPart (Bin);
drop index ixPartBin on tblPart;
create unique index ixPartCode on tblPart (Description);
-- error: -2147467259
insert into tblPart(PartID,Description) values('P-900','oil FILTER');
create table tblShort (a long, b text(3));
drop table tblShort;
-- error: 0x80040E37
select * from tblShort;

-- name: changes of a column that is not there
-- error: 0x80040E37
alter table tblNoSuch add column a long;

-- name: rows that a release brings
-- changes: 1
insert into tblSysOption(SysOption,itemValue) values('NEWOPTION','1');
-- changes: 1
insert into tblTableFields(Tablename,RowID,FieldDesc,FieldName,FieldType)
values('tblPart',9,'Shelf','Shelf','VARCHAR');
-- changes: 1
insert into tblUser(UserName,[Password]) values('root','admin');
-- changes: 1
Insert into tblIndicator(ParentId,ItemName,Show,FSize) values(12,'Turf',True,0);
-- changes: 2
update tblCostCenter set Budget = 0 where Budget is not null;

-- database: own
-- What statements give on tables made for them alone. Each case has a database of its own and runs
-- outside a transaction.

-- name: a group is made of the column and not of an output of its name
create table Machine (Id counter primary key, Name text(20));
create table Job (JobNo long, Machine long, Price money);
insert into Machine(Name) values('Mower');
insert into Machine(Name) values('Mixer');
insert into Machine(Name) values('Mower');
insert into Machine(Name) values('Saw');
insert into Job values(1,1,5);
insert into Job values(2,1,7);
-- rows: 3
-- has row: M | 1
-- has row: M | 2
-- has row: S | 1
select left(A.Name,1) as Name, count(*) from Machine A group by A.Name;
-- rows: 3
-- has row: M | 2
select left(Name,1) as Name, count(*) from Machine group by Name;
-- rows: 2
-- has row: M | 3
-- has row: S | 1
select left(Name,1) as Name, count(*) from Machine group by left(Name,1);
-- rows: 1
-- row 1: S | 1
select left(Name,1) as Name, count(*) from Machine group by left(Name,1) having left(Name,1) = 'S';
-- rows: 3
-- has row: M | Mixer
-- has row: S | Saw
select left(Name,1) as x, Name as Id from Machine group by Name, left(Name,1);
-- rows: 1
-- row 1: 12 | 2
select sum(Price) as Machine, count(*) from Job group by Machine;
-- rows: 3
-- has row: MIXER | 0
-- has row: MOWER | 2
-- has row: SAW | 0
select ucase(Name) as Name, (select count(*) from Job j where j.Machine = min(m.Id))
from Machine m group by Name;

-- name: outer joins give the rows that the condition says
create table Machine (Id counter primary key, Name text(20));
create table Job (JobNo long, Machine long, Code text(10), Due datetime);
insert into Machine(Name) values('Mower');
insert into Machine(Name) values('Idle');
insert into Job values(1,1,'x',#3/1/2024#);
insert into Job values(2,1,'y',Null);
-- rows: 3
select m.Name from Machine m left join Job j on m.Id = j.Machine where m.Id > 0;
-- rows: 2
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.JobNo > 0;
-- rows: 1
-- row 1: Idle
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.JobNo is null;
-- rows: 1
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.Due < #3/15/2024#;
-- rows: 3
select m.Name from Machine m left join Job j on m.Id = j.Machine where (j.Due < #3/15/2024# or
j.Due is null);
-- rows: 1
select m.Name from Machine m left join Job j on m.Id = j.Machine where not (j.Code = 'x');
-- rows: 1
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.JobNo not in
(select JobNo from Job where Code = 'x');
-- rows: 3
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.JobNo not in
(select JobNo from Job where Code = 'q');
-- rows: 1
-- row 1: Idle
select m.Name from Machine m left join Job j on m.Id = j.Machine where j.JobNo & '' = '';

-- name: unions take Null and numbers beside texts
create table Machine (Name text(20));
create table Job (JobNo long, Code text(10));
insert into Machine(Name) values('Mower');
insert into Job values(7,'seven');
-- columns: Unit No | No | Printed
-- rows: 2
-- row 1: seven | 7 | no
-- row 2: Mower | null | '0'
select Name as [Unit No], Null as [No], 0 as [Printed] from Machine union select Code, JobNo, 'no'
from Job order by [Unit No] desc;

-- name: yes/no columns hold minus one or zero whoever writes
create table Part (Code text(10), Hours double, Spare yesno);
insert into Part(Code,Spare) values('a','1');
insert into Part(Code,Spare) values('b',5);
insert into Part(Code,Hours) values('c',12.5);
insert into Part(Code,Spare) values('d',Null);
insert into Part(Code,Spare) select 'e', Hours > 5 from Part where Code = 'c';
-- row 1: a | -1
-- row 2: b | -1
-- row 3: c | 0
-- row 4: d | 0
-- row 5: e | -1
select Code, Spare from Part order by Code;
-- rows: 3
select * from Part where Spare;
-- rows: 3
select * from Part where Spare = -1;
-- rows: 3
select * from Part where Spare <> 0;
-- rows: 3
select * from Part where Spare = True;
-- rows: 3
select * from Part where Spare = '1';
-- rows: 3
select * from Part where not (Spare = No);
alter table Part add Checked yesno;
-- rows: 5
select * from Part where Checked = 0;
update Part set Checked = True where Code = 'a';
alter table Part drop column Spare;
-- rows: 1
select * from Part where Checked = -1;

-- name: definitions do what they say
create table Log ([No] counter(100,1) primary key, Text text(10) not null, At datetime default
Date(), Price currency default 2.5, constraint byText unique (Text));
-- key: No
insert into Log(Text) values('a');
-- row 1: 100 | #03-15-2024# | 2.5
select [No], At, Price from Log where [No] = {key};
-- key: no
insert into Log(Text) values('b');
-- row 1: 101
select [No] from Log where [No] = {key};
alter table Log alter column [No] counter(500,1);
-- key: No
insert into Log(Text) values('c');
-- row 1: 500
select [No] from Log where [No] = {key};
-- error: 0x80004005
insert into Log(Text) values('A');
-- error: 0x80040E21
insert into Log(Text) values(Null);
create index Newest on Log (At desc);
create table Job (Due datetime);
create index Newest on Job (Due desc);
drop index Newest on Log;
alter table Log drop constraint byText;
insert into Log(Text) values('A');
drop table Log;
-- error: 0x80040E37
select * from Log;

-- name: an index that disallows Null
create table Job (JobNo long, Machine long);
insert into Job(JobNo) values(1);
-- error: 0x80040E21
create index ByMachine on Job (Machine) with disallow null;
update Job set Machine = 5;
create index ByMachine on Job (Machine) with disallow null;
-- error: 0x80040E21
insert into Job(JobNo) values(2);

-- name: memos are texts in every place of a statement
create table tblAll (Whole long, Name text(30), Note memo);
insert into tblAll values(1,'pe','pear');
insert into tblAll values(2,'Ap','Apple');
insert into tblAll values(3,'PE','PEAR');
insert into tblAll values(4,'10','100% #1 [x]');
insert into tblAll values(5,'','');
insert into tblAll(Whole) values(9);
-- rows: 2
-- row 1: 1
-- row 2: 3
select Whole from tblAll where Note = 'Pear' order by Whole;
-- rows: 1
-- row 1: 5
select Whole from tblAll where Note = '';
-- rows: 1
-- row 1: 9
select Whole from tblAll where Note is null;
-- rows: 0
select Whole from tblAll where Note like '*#1 [[]x]';
-- rows: 1
-- row 1: 4
select Whole from tblAll where Note like '*[#]1 [[]x]';
-- rows: 3
-- row 1: 1
-- row 2: 2
-- row 3: 3
select Whole from tblAll where Note like 'ap*' or Note in ('x', 'pear') order by Whole;
-- rows: 2
-- row 1: 1
-- row 2: 3
select Whole from tblAll where Note > 'b' and Note <= 'pear' order by Whole;
-- rows: 2
-- row 1: pear
-- row 2: Apple
select Note from tblAll where Whole < 4 and Whole <> 3 order by Note desc;
-- rows: 2
-- row 1: Apple | 2
-- row 2: pear | 1
select Note as N, Whole from tblAll where Whole < 3 order by 1;
-- rows: 2
-- row 1: Apple
-- row 2: PEAR
select distinct Note from tblAll where Whole < 4 order by Note;
-- rows: 1
-- row 1: PEAR | 2
select Note, Count(*) from tblAll where Whole < 4 group by Note having Count(*) > 1;
-- row 1: Apple
select First(Note) from tblAll where Whole < 4;
-- rows: 1
-- row 1: pear
select Note from tblAll where Whole = 1 union select Note from tblAll where Whole = 3;
-- rows: 2
-- row 1: Ap
-- row 2: Apple
select Name from tblAll where Whole = 2 union all select Note from tblAll where Whole = 2;
-- rows: 1
-- row 1: Apple
select N from (select distinct Note as N from tblAll) where N = 'apple';
-- row 1: pe-AR
select Left(Note, 2) + '-' + UCase(Mid(Note, 3)) from tblAll where Whole = 1;
-- row 1: Apple
select IIf(InStr(Note, 'pp') > 0, Note, Name) from tblAll where Whole = 2;
-- row 1: 4
select Len(Note) from tblAll where Whole = 1;
-- changes: 1
insert into tblAll(Whole, Note) select 20, Note from tblAll where Whole = 2;
-- changes: 1
update tblAll set Name = Note where Whole = 20;
-- row 1: Apple
select Name from tblAll where Whole = 20;

-- name: texts are compared without regard to case
create table Machine (Name text(20), [Note] memo);
insert into Machine(Name) values('Mower');
insert into Machine(Name) values('mower 2');
insert into Machine(Name) values('50% off');
insert into Machine(Name) values('a_b');
insert into Machine(Name) values('Zürich');
insert into Machine(Name) values('X#1');
-- rows: 1
select * from Machine where Name = 'MOWER';
-- rows: 5
select * from Machine where Name <> 'MOWER';
-- rows: 0
select * from Machine where Name = 'Zurich';
-- rows: 2
select * from Machine where Name in ('MOWER', 'zÜRICH');
-- rows: 2
select * from Machine where Name between 'MOWER' and 'mower 2';
-- rows: 6
select * from Machine where 'ABC' = 'abc';
-- rows: 0
select * from Machine where [Note] = Null;
-- rows: 5
select distinct LCase(Left(Name,5)) & '' as n from Machine;

-- name: patterns of like
create table Machine (Name text(20));
insert into Machine values('Mower');
insert into Machine values('mower 2');
insert into Machine values('50% off');
insert into Machine values('a_b');
insert into Machine values('Zürich');
insert into Machine values('X#1');
-- rows: 2
select * from Machine where Name like 'MOWER*';
-- rows: 1
select * from Machine where Name like 'mower ?';
-- rows: 1
select * from Machine where Name like 'mower #';
-- rows: 1
select * from Machine where Name like '[A-C]*';
-- rows: 3
select * from Machine where Name like '[!a-m]*';
-- rows: 1
select * from Machine where Name like '*%*';
-- rows: 1
select * from Machine where Name like 'a_b';
-- rows: 1
select * from Machine where Name like '*[#]*';
-- rows: 1
select * from Machine where Name like 'M*2';
-- rows: 6
select * from Machine where Name like '*';
-- rows: 3
select * from Machine where not Name like '*o*';
-- rows: 3
select * from Machine where Name not like '*o*';
-- rows: 6
select * from Machine where Name like Left(Name, 1) & '*';

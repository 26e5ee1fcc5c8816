-- The address book's database as it is before the first contact. The build makes data97.mdb from this file.
--
-- An empty line ends a statement. Lines that begin with two dashes are comments.

pragma application_id=1364541764

-- AddressDatabase opens no other version.
pragma user_version=1

-- Columns are in the order in which statements insert rows by position and lists show fields by position.

create table State(
    StateID integer primary key check(StateID between 0 and 255),
    StateName text not null collate LOCALE_TEXT check(length(StateName) <= 50)
)

create table City(
    CityID integer primary key check(CityID between -32768 and 32767),
    CityName text not null collate LOCALE_TEXT check(length(CityName) <= 50),
    StateID integer not null references State(StateID)
)

create table Groups(
    GroupID integer primary key check(GroupID between 0 and 255),
    GroupName text not null collate LOCALE_TEXT check(length(GroupName) <= 50)
)

create table Names(
    SrNo integer primary key check(SrNo between -2147483648 and 2147483647),
    GroupID integer not null references Groups(GroupID),
    Salutation text not null collate LOCALE_TEXT,
    Name text not null collate LOCALE_TEXT check(length(Name) <= 50),
    NickName text not null collate LOCALE_TEXT check(length(NickName) <= 50),
    Comment text not null collate LOCALE_TEXT check(length(Comment) <= 255),
    dtOfBirth datetime
)

create table Home(
    SrNo integer primary key references Names(SrNo) on delete cascade,
    hAddress text not null collate LOCALE_TEXT check(length(hAddress) <= 100),
    CityID integer not null references City(CityID),
    hZipCode text not null collate LOCALE_TEXT,
    hPhone1 text not null collate LOCALE_TEXT,
    hPhone2 text not null collate LOCALE_TEXT,
    hMobile text not null collate LOCALE_TEXT
)

create table Business(
    SrNo integer primary key references Names(SrNo) on delete cascade,
    bAddress text not null collate LOCALE_TEXT check(length(bAddress) <= 100),
    CityID integer not null references City(CityID),
    bZipCode text not null collate LOCALE_TEXT,
    bPhone1 text not null collate LOCALE_TEXT,
    bPhone2 text not null collate LOCALE_TEXT,
    bFax text not null collate LOCALE_TEXT,
    bPager text not null collate LOCALE_TEXT,
    bCompany text not null collate LOCALE_TEXT check(length(bCompany) <= 50),
    bPost text not null collate LOCALE_TEXT check(length(bPost) <= 50),
    bDepartment text not null collate LOCALE_TEXT check(length(bDepartment) <= 50)
)

create table EMails(
    SrNo integer not null references Names(SrNo) on delete cascade,
    Email_Id text not null collate LOCALE_TEXT
)

-- For the cascading delete and the filter by city. No index may be on a text: its order depends on the language.
create index EMailsOfContact on EMails(SrNo)

create index HomesInCity on Home(CityID)

create index BusinessesInCity on Business(CityID)

-- The relations refuse these rows as well; the triggers say in words which one is meant.

create trigger NamesNeedGroup before insert on Names
when not exists(select 1 from Groups where GroupID = new.GroupID)
begin
    select raise(abort, 'A related record is required in table ''Groups''.');
end

create trigger HomeNeedsCity before insert on Home
when not exists(select 1 from City where CityID = new.CityID)
begin
    select raise(abort, 'A related record is required in table ''City''.');
end

create trigger BusinessNeedsCity before insert on Business
when not exists(select 1 from City where CityID = new.CityID)
begin
    select raise(abort, 'A related record is required in table ''City''.');
end

create trigger CityNeedsState before insert on City
when not exists(select 1 from State where StateID = new.StateID)
begin
    select raise(abort, 'A related record is required in table ''State''.');
end

create trigger CityKeepsState before update of StateID on City
when not exists(select 1 from State where StateID = new.StateID)
begin
    select raise(abort, 'A related record is required in table ''State''.');
end

insert into Groups values(1, 'Default')

insert into State values(1, '..')

insert into City values(1, '..', 1)

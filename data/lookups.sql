-- The rows that every office starts with, in the dialect that the program speaks. Every engine gets them through the
-- front end, right after the schema. No screen writes these tables, the company row and the field catalogue excepted.

-- States of the address combos: the United States with their district, then the provinces and territories of Canada.

INSERT INTO State (State) VALUES
    ('AL'), ('AK'), ('AZ'), ('AR'), ('CA'), ('CO'), ('CT'), ('DE'), ('DC'), ('FL'), ('GA'), ('HI'), ('ID'),
    ('IL'), ('IN'), ('IA'), ('KS'), ('KY'), ('LA'), ('ME'), ('MD'), ('MA'), ('MI'), ('MN'), ('MS'), ('MO'),
    ('MT'), ('NE'), ('NV'), ('NH'), ('NJ'), ('NM'), ('NY'), ('NC'), ('ND'), ('OH'), ('OK'), ('OR'), ('PA'),
    ('RI'), ('SC'), ('SD'), ('TN'), ('TX'), ('UT'), ('VT'), ('VA'), ('WA'), ('WV'), ('WI'), ('WY'), ('AB'),
    ('BC'), ('MB'), ('NB'), ('NL'), ('NS'), ('NT'), ('NU'), ('ON'), ('PE'), ('QC'), ('SK'), ('YT');

-- Types of vehicle; OrderBy ranks them on the schedule board.

INSERT INTO BusType (Name, OrderBy) VALUES
    ('Bus', 1),
    ('Sub-Lease Bus', 2),
    ('Truck', 3),
    ('Sub-Lease Truck', 4),
    ('Trailer', 5);

-- The program compares tours against these words.

INSERT INTO TourStatus (Status) VALUES
    ('Quote - Active'),
    ('Quote - Closed'),
    ('Contract - Verbal'),
    ('Contract - Committed'),
    ('Contract - Signed'),
    ('Contract - Dispatched'),
    ('Other');

-- Kinds of tour contact; the auto-fill writes the first four and 'Other'.

INSERT INTO TourContactType (Name) VALUES
    ('Business Manager'),
    ('Personal Manager'),
    ('Tour Manager'),
    ('Production Manager'),
    ('Booking Agent'),
    ('Promoter'),
    ('Travel Agent'),
    ('Venue'),
    ('Vendor'),
    ('Other');

-- 'Admin' passes every permission test; any other type has the rights listed for the user.

INSERT INTO UserType (Name) VALUES
    ('Admin'),
    ('User');

-- Every right that a command, a button or a save asks for. One that is missing here is refused to all but 'Admin'.

INSERT INTO Permission (Name) VALUES
    ('Bus Expense Entry/Edit'),
    ('Bus Expense Navigator'),
    ('Bus/Trailer Entry/Edit'),
    ('Bus/Trailer View'),
    ('Bus/Trailer Utilization Report'),
    ('Company Info'),
    ('Contact Navigator'),
    ('Customer Entry/Edit'),
    ('Customer View'),
    ('Customer Statements Report'),
    ('Document Category Entry/Edit'),
    ('Driver Entry/Edit'),
    ('Driver View'),
    ('Driver Listing Report'),
    ('Driver Pay Report'),
    ('Driver Pickup Report'),
    ('Expense Category Entry/Edit'),
    ('Expense Category View'),
    ('Fleet Tracker Field Entry/Edit'),
    ('FleetTracker Action Entry/Edit'),
    ('FleetTracker Action View'),
    ('FleetTracker Navigator'),
    ('FleetTracker PM'),
    ('FleetTracker Ticket Entry'),
    ('FleetTracker Ticket Entry/Edit'),
    ('FleetTracker Ticket View'),
    ('FleetTracker Ticket Status Change'),
    ('Income Report'),
    ('Investor Report'),
    ('Invoice Report'),
    ('Lease Agreement Report'),
    ('Lease Template Entry/Edit'),
    ('Onboard Lease Agreement Report'),
    ('Open Invoices Report'),
    ('Owner Entry/Edit'),
    ('Owner View'),
    ('Owner Income/Expense Report'),
    ('QB Sync'),
    ('Receive Payment'),
    ('Receive Payments'),
    ('Route Entry/Edit'),
    ('Route Navigator'),
    ('Sales By Customer Report'),
    ('Sales By Driver Report'),
    ('Schedule Navigator'),
    ('Security'),
    ('Task Entry'),
    ('Task List'),
    ('Task Type Entry'),
    ('Tour Entry/Edit'),
    ('Tour View');

-- Facts about a vehicle that the maintenance run and the tickets know by these very numbers. Offices add their own
-- from 31 on.

SET IDENTITY_INSERT BusFleetTrackerFields ON;
INSERT INTO BusFleetTrackerFields (ID, Name, FieldType, Category) VALUES
    (9, 'Engine Service Interval Miles', 'Number', 'Service Intervals'),
    (10, 'Rearend Service Interval Miles', 'Number', 'Service Intervals'),
    (11, 'Transmission Service Interval Miles', 'Number', 'Service Intervals'),
    (12, 'Last Engine Service Miles', 'Number', 'Service History'),
    (13, 'Last Rearend Service Miles', 'Number', 'Service History'),
    (14, 'Last Transmission Service Miles', 'Number', 'Service History'),
    (15, 'Last Engine Service Date', 'Date', 'Service History'),
    (16, 'Last Rearend Service Date', 'Date', 'Service History'),
    (17, 'Last Transmission Service Date', 'Date', 'Service History'),
    (18, 'Last Engine Service Ticket ID', 'Number', 'Service History'),
    (19, 'Last Rearend Service Ticket ID', 'Number', 'Service History'),
    (20, 'Last Transmission Service Ticket ID', 'Number', 'Service History'),
    (21, 'Next Tag Date', 'Date', 'Tags and Inspections'),
    (22, 'Next IFTA Sticker Date', 'Date', 'Tags and Inspections'),
    (23, 'Next DOT Inspection Date', 'Date', 'Tags and Inspections'),
    (24, 'Last Tag Ticket ID', 'Number', 'Tags and Inspections'),
    (25, 'Last Tag Service Date', 'Date', 'Tags and Inspections'),
    (26, 'Last IFTA Sticker Ticket ID', 'Number', 'Tags and Inspections'),
    (27, 'Last IFTA Sticker Service Date', 'Date', 'Tags and Inspections'),
    (28, 'Last DOT Inspection Ticket ID', 'Number', 'Tags and Inspections'),
    (29, 'Last DOT Inspection Service Date', 'Date', 'Tags and Inspections'),
    (30, 'Current Miles', 'Number', 'Mileage');
SET IDENTITY_INSERT BusFleetTrackerFields OFF;

-- Start-up reads every column of the company's row and takes no NULL. Setup asks for the name and the state.

INSERT INTO Company (
    Name, Address1, Address2, City, State, Zip, Phone, Fax, Website, Email,
    KeyPressDelay, TaxRate,
    MaintenanceEmail, EmailFromAddress, EmailFromName, EmailServer, EmailServerUser, EmailServerPassword,
    DOTRate, SatelliteRate, InternetRate, HotelBuyOutRate, SuppliesRate, BusWashRate, LinenRate, GeneratorRate,
    FuelRate, EngineRate, PayrollFeeRate, AdminFeeRate, CarpetTotal, CleaningTotal, PermitTotal, MiscTotal,
    BusContract, DriverContract, DOTContract, SatelliteContract, InternetContract, HotelBuyOutContract,
    SuppliesContract, BusWashContract, LinenContract, GeneratorContract, FuelContract, EngineContract,
    CarpetContract, CleaningContract, PermitContract, MiscContract, PayrollFeeContract, AdminContract,
    Tax0, Tax1, Tax2, Tax3, Tax4, Tax5, Tax6, Tax7, Tax8, Tax9, Tax10, Tax11, Tax12, Tax13, Tax14, Tax15, Tax16,
    Tax17
) VALUES (
    'New Company', '', '', '', '', '', '', '', '', '',
    1, 0,
    '', '', '', '', '', '',
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract',
    'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract', 'Contract',
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0
);

-- Every date that the period of a report can reach, from January 1, 1990 on, doubled up to 32,768 days.

INSERT INTO DateRange (DateField) VALUES ('1/1/1990');
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 1, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 2, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 4, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 8, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 16, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 32, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 64, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 128, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 256, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 512, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 1024, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 2048, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 4096, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 8192, DateField) FROM DateRange;
INSERT INTO DateRange (DateField) SELECT DATEADD(day, 16384, DateField) FROM DateRange;

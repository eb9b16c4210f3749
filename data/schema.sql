-- The whole database of the office, in the dialect that the program speaks. Every engine gets it through the front end.
-- Keys are identities. No foreign key is declared: the screens keep them, and nothing rests on cascades.
-- Where a screen fixes no length, the lengths below are generous ones.

-- Company and look-up tables

CREATE TABLE Company (
    Name varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone varchar(50),
    Fax varchar(50),
    Website varchar(200),
    Email varchar(200),
    KeyPressDelay float,
    TaxRate float,
    MaintenanceEmail varchar(200),
    EmailFromAddress varchar(200),
    EmailFromName varchar(100),
    EmailServer varchar(200),
    EmailServerUser varchar(200),
    EmailServerPassword varchar(200),
    DOTRate money,
    SatelliteRate money,
    InternetRate money,
    HotelBuyOutRate money,
    SuppliesRate money,
    BusWashRate money,
    LinenRate money,
    GeneratorRate money,
    FuelRate money,
    EngineRate money,
    PayrollFeeRate money,
    AdminFeeRate money,
    CarpetTotal money,
    CleaningTotal money,
    PermitTotal money,
    MiscTotal money,
    BusContract varchar(20),
    DriverContract varchar(20),
    DOTContract varchar(20),
    SatelliteContract varchar(20),
    InternetContract varchar(20),
    HotelBuyOutContract varchar(20),
    SuppliesContract varchar(20),
    BusWashContract varchar(20),
    LinenContract varchar(20),
    GeneratorContract varchar(20),
    FuelContract varchar(20),
    EngineContract varchar(20),
    CarpetContract varchar(20),
    CleaningContract varchar(20),
    PermitContract varchar(20),
    MiscContract varchar(20),
    PayrollFeeContract varchar(20),
    AdminContract varchar(20),
    Tax0 bit,
    Tax1 bit,
    Tax2 bit,
    Tax3 bit,
    Tax4 bit,
    Tax5 bit,
    Tax6 bit,
    Tax7 bit,
    Tax8 bit,
    Tax9 bit,
    Tax10 bit,
    Tax11 bit,
    Tax12 bit,
    Tax13 bit,
    Tax14 bit,
    Tax15 bit,
    Tax16 bit,
    Tax17 bit
);

CREATE TABLE State (
    State varchar(50)
);

CREATE TABLE BusType (
    Name varchar(50),
    OrderBy int
);

CREATE TABLE TourStatus (
    Status varchar(50)
);

CREATE TABLE TourContactType (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(50)
);

CREATE TABLE UserType (
    Name varchar(50)
);

CREATE TABLE TaskType (
    TaskType varchar(50) NOT NULL PRIMARY KEY
);

CREATE TABLE ExpenseCategory (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    Notes varchar(8000),
    DateEntered datetime,
    EnteredBy varchar(50)
);

CREATE TABLE DocumentCategory (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100)
);

CREATE TABLE LeaseTemplate (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    LeaseFileName varchar(250),
    DateEntered datetime,
    EnteredBy varchar(50)
);

-- Every date that a report's period can reach, one a row: the daily part of the owner report walks the days by it.
CREATE TABLE DateRange (
    DateField datetime NOT NULL PRIMARY KEY
);

-- People and parties

CREATE TABLE Customer (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    LegalName varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Website varchar(200),
    Contact1 varchar(100),
    Phone1 varchar(50),
    Fax1 varchar(50),
    Email1 varchar(200),
    Email1a varchar(500),
    Contact2 varchar(100),
    Phone2 varchar(50),
    Fax2 varchar(50),
    Email2 varchar(200),
    Email2a varchar(500),
    DOT varchar(100),
    Notes varchar(8000),
    Inactive bit,
    Name3 varchar(100),
    Contact3 varchar(100),
    Address3 varchar(100),
    City3 varchar(50),
    State3 varchar(50),
    Zip3 varchar(20),
    Phone3 varchar(50),
    Cell3 varchar(50),
    Fax3 varchar(50),
    Email3 varchar(200),
    Website3 varchar(200),
    Name4 varchar(100),
    Contact4 varchar(100),
    Address4 varchar(100),
    City4 varchar(50),
    State4 varchar(50),
    Zip4 varchar(20),
    Phone4 varchar(50),
    Cell4 varchar(50),
    Fax4 varchar(50),
    Email4 varchar(200),
    Website4 varchar(200),
    Name5 varchar(100),
    Contact5 varchar(100),
    Address5 varchar(100),
    City5 varchar(50),
    State5 varchar(50),
    Zip5 varchar(20),
    Phone5 varchar(50),
    Cell5 varchar(50),
    Fax5 varchar(50),
    Email5 varchar(200),
    Website5 varchar(200),
    Name6 varchar(100),
    Contact6 varchar(100),
    Address6 varchar(100),
    City6 varchar(50),
    State6 varchar(50),
    Zip6 varchar(20),
    Phone6 varchar(50),
    Cell6 varchar(50),
    Fax6 varchar(50),
    Email6 varchar(200),
    Website6 varchar(200),
    DateEntered datetime,
    EnteredBy varchar(50)
);
-- The pick lists, ORDER BY Name; the accounting link and the security screen look customers up by name.
CREATE INDEX Customer_Name ON Customer (Name);

CREATE TABLE Driver (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone1 varchar(50),
    Phone2 varchar(50),
    Phone3 varchar(50),
    Email varchar(200),
    Notes varchar(8000),
    DefaultRate money,
    SSN varchar(50),
    DriversLicenseNo varchar(50),
    DriversLicenseExpiration varchar(50),
    PassportNo varchar(50),
    PassportExpiration varchar(50),
    Inactive bit,
    DateEntered datetime,
    EnteredBy varchar(50)
);
-- The pick lists, ORDER BY Name.
CREATE INDEX Driver_Name ON Driver (Name);

CREATE TABLE Owner (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone1 varchar(50),
    Phone2 varchar(50),
    Phone3 varchar(50),
    Notes varchar(8000),
    Inactive bit,
    DateEntered datetime,
    EnteredBy varchar(50)
);

CREATE TABLE [User] (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone varchar(50),
    Fax varchar(50),
    Email varchar(200),
    Territory int,
    Username varchar(50),
    Password varchar(50),
    Type varchar(50),
    Inactive bit,
    WebPermission varchar(20),
    DateEntered datetime,
    SalesOrderPrintQty int,
    InvoicePrintQty int,
    PackingSlipPrintQty int,
    PickTicketPrintQty int
);

CREATE TABLE Permission (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100)
);
-- The permission test: WHERE Name = '...'.
CREATE INDEX Permission_Name ON Permission (Name);

CREATE TABLE UserPermission (
    UserID int,
    PermissionID int
);
-- The permission test: WHERE UserID = ... AND PermissionID = ...
CREATE INDEX UserPermission_User ON UserPermission (UserID, PermissionID);

CREATE TABLE WebUserCustomers (
    UserID int,
    CustomerName varchar(100)
);
-- The security screen: WHERE UserID = ...
CREATE INDEX WebUserCustomers_User ON WebUserCustomers (UserID);

-- Vehicles

CREATE TABLE Bus (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    Type varchar(50),
    Model varchar(100),
    VIN varchar(50),
    Tag varchar(50),
    State varchar(50),
    OwnerID int,
    Bunks int,
    Lease money,
    CommAmount money,
    CommPercent float,
    Satellite money,
    Internet money,
    Notes varchar(8000),
    FrontSatAccessCard varchar(100),
    RearSatAccessCard varchar(100),
    InternetCard varchar(100),
    DriverXMID varchar(100),
    DefaultDriver int,
    DefaultAddDriver int,
    Inactive bit,
    DateEntered datetime,
    EnteredBy varchar(50)
);
-- The pick lists, ORDER BY Name.
CREATE INDEX Bus_Name ON Bus (Name);
-- The owner report: the active vehicles of each owner, and the vehicles of one.
CREATE INDEX Bus_Owner ON Bus (OwnerID);

CREATE TABLE BusImages (
    ID int IDENTITY(1,1) PRIMARY KEY,
    BusID int,
    ImageName varchar(250),
    FileType varchar(20)
);
-- The picture list of a vehicle: WHERE BusID = ... ORDER BY ImageName.
CREATE INDEX BusImages_Bus ON BusImages (BusID, ImageName);

CREATE TABLE BusFleetTrackerFields (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(100),
    FieldType varchar(50),
    Category varchar(100)
);

CREATE TABLE BusFleetTracker (
    ID int IDENTITY(1,1) PRIMARY KEY,
    BusID int,
    BusFleetTrackerFieldID int,
    FieldValue varchar(250),
    Notes varchar(500),
    EnteredDate datetime,
    EnteredBy varchar(50),
    EditedDate datetime,
    EditedBy varchar(50)
);
-- Current miles, the field grid of a vehicle and the ten joins of the maintenance run.
CREATE INDEX BusFleetTracker_Bus ON BusFleetTracker (BusID, BusFleetTrackerFieldID);
-- The delete check of a field: WHERE BusFleetTrackerFieldID = ...
CREATE INDEX BusFleetTracker_Field ON BusFleetTracker (BusFleetTrackerFieldID);

CREATE TABLE BusExpense (
    ID int IDENTITY(1,1) PRIMARY KEY,
    BusID int,
    CategoryID int,
    ExpenseDate datetime,
    Description varchar(1000),
    Amount money,
    Billable bit,
    DateEntered datetime,
    EnteredBy varchar(50)
);
-- The delete check of a category: WHERE CategoryID = ...
CREATE INDEX BusExpense_Category ON BusExpense (CategoryID);
-- The expense navigator and the owner report: ExpenseDate between two dates.
CREATE INDEX BusExpense_Date ON BusExpense (ExpenseDate);

-- The delete check of an expense category asks for the expenses under this name, and nothing else does.
CREATE VIEW BusExpenses AS SELECT * FROM BusExpense;

-- Tours

CREATE TABLE Tour (
    ID int IDENTITY(1,1) PRIMARY KEY,
    CustomerID int,
    TourName varchar(100),
    Status varchar(50),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Contact1 varchar(100),
    Phone1 varchar(50),
    Cell1 varchar(50),
    Fax1 varchar(50),
    Email1 varchar(200),
    Email1a varchar(500),
    Contact2 varchar(100),
    Phone2 varchar(50),
    Cell2 varchar(50),
    Fax2 varchar(50),
    Email2 varchar(200),
    Email2a varchar(500),
    Notes varchar(8000),
    TotalTourBudget money,
    IncludedInContract money,
    ClientResp money,
    AllInclusive bit,
    DateEntered datetime,
    EnteredBy varchar(50),
    DateEdited datetime,
    EditedBy varchar(50)
);
-- The customer search and the sales by customer: Tour.CustomerID = ...
CREATE INDEX Tour_Customer ON Tour (CustomerID);
-- The tour report: Tour.Status = '...'.
CREATE INDEX Tour_Status ON Tour (Status);

-- ID is the line's number within its tour, which the program writes itself.
CREATE TABLE TourItems (
    ID int,
    TourID int,
    BusID int,
    StartDate datetime,
    EndDate datetime,
    DiscountedDays int,
    TravelDaysIn int,
    TravelDaysOut int,
    TourDays int,
    BilledDays int,
    BilledMonths float,
    TotalMileage float,
    PriceNotes varchar(8000),
    TourBudget money,
    IncludedInContract money,
    DriverCollect money,
    ClientResp money,
    Commission money,
    CommissionPerMonth money,
    PickupDate datetime,
    PickupLocation varchar(200),
    PickupAddress varchar(200),
    PickupCity varchar(50),
    PickupState varchar(50),
    PickupZip varchar(20),
    PickupPhone varchar(50),
    PickupContacts varchar(500),
    PickupNotes varchar(8000),
    HotelRoomAtPickup varchar(200),
    FirstDrive varchar(500),
    EndingDate datetime,
    EndingLocation varchar(200),
    EndingAddress varchar(200),
    EndingCity varchar(50),
    EndingState varchar(50),
    EndingZip varchar(20),
    EndingPhone varchar(50),
    MinimumBunks int,
    Passengers int,
    BusRate money,
    BusRateType varchar(20),
    BusTotal money,
    BusContract bit,
    BusDriver bit,
    BusClient bit,
    DriverID int,
    DriverRate money,
    DriverTotal money,
    DriverContract bit,
    DriverDriver bit,
    DriverClient bit,
    AddDriverID int,
    AddDriverRate money,
    AddDriverTotal money,
    AddDriverContract bit,
    AddDriverDriver bit,
    AddDriverClient bit,
    DOTRate money,
    DOTRateType varchar(20),
    DOTTotal money,
    DOTContract bit,
    DOTDriver bit,
    DOTClient bit,
    SatelliteRate money,
    SatelliteRateType varchar(20),
    SatelliteTotal money,
    SatelliteContract bit,
    SatelliteDriver bit,
    SatelliteClient bit,
    InternetRate money,
    InternetRateType varchar(20),
    InternetTotal money,
    InternetContract bit,
    InternetDriver bit,
    InternetClient bit,
    HotelBuyOutRate money,
    HotelBuyOutTotal money,
    HotelBuyOutContract bit,
    HotelBuyOutDriver bit,
    HotelBuyOutClient bit,
    SuppliesRate money,
    SuppliesTotal money,
    SuppliesContract bit,
    SuppliesDriver bit,
    SuppliesClient bit,
    BusWashRate money,
    BusWashTotal money,
    BusWashContract bit,
    BusWashDriver bit,
    BusWashClient bit,
    LinenRate money,
    LinenTotal money,
    LinenContract bit,
    LinenDriver bit,
    LinenClient bit,
    GeneratorRate money,
    GeneratorTotal money,
    GeneratorContract bit,
    GeneratorDriver bit,
    GeneratorClient bit,
    FuelRate money,
    FuelTotal money,
    FuelContract bit,
    FuelDriver bit,
    FuelClient bit,
    EngineRate money,
    EngineTotal money,
    EngineContract bit,
    EngineDriver bit,
    EngineClient bit,
    CarpetTotal money,
    Misc2Desc varchar(200),
    CarpetContract bit,
    CarpetDriver bit,
    CarpetClient bit,
    CleaningTotal money,
    CleaningContract bit,
    CleaningDriver bit,
    CleaningClient bit,
    PermitTotal money,
    PermitContract bit,
    PermitDriver bit,
    PermitClient bit,
    MiscTotal money,
    MiscDesc varchar(200),
    MiscContract bit,
    MiscDriver bit,
    MiscClient bit,
    PayrollFeeTotal money,
    Misc3Desc varchar(200),
    PayrollFeeContract bit,
    PayrollFeeDriver bit,
    PayrollFeeClient bit,
    AdminTotal money,
    Misc4Desc varchar(200),
    AdminContract bit,
    AdminDriver bit,
    AdminClient bit
);
-- Loading and replacing the lines of a tour: WHERE TourID = ... ORDER BY ID.
CREATE INDEX TourItems_Tour ON TourItems (TourID, ID);
-- The conflict check and the schedule board: BusID = ... AND StartDate <= '...' AND EndDate >= '...'.
CREATE INDEX TourItems_Bus ON TourItems (BusID, StartDate, EndDate);
-- The driver board: DriverID IN (...).
CREATE INDEX TourItems_Driver ON TourItems (DriverID, StartDate);
-- The task list: StartDate, and EndDate, between two dates.
CREATE INDEX TourItems_Start ON TourItems (StartDate);
CREATE INDEX TourItems_End ON TourItems (EndDate);

CREATE TABLE TourContacts (
    ID int IDENTITY(1,1) PRIMARY KEY,
    TourID int,
    ContactType varchar(50),
    Name varchar(100),
    Contact varchar(100),
    Address varchar(200),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone varchar(50),
    Cell varchar(50),
    Fax varchar(50),
    Email varchar(200),
    Website varchar(200),
    Notes varchar(8000),
    EnteredDate datetime,
    EnteredBy varchar(50)
);
-- The contacts of a tour: WHERE TourID = ...
CREATE INDEX TourContacts_Tour ON TourContacts (TourID);

CREATE TABLE TourRoute (
    TourID int,
    BusID int,
    Row int,
    CityState varchar(100),
    StartDate datetime,
    EndDate datetime,
    MileageBetween float,
    Hours float,
    CumHours float,
    TotalMileage float,
    TotalHours float,
    Notes varchar(8000),
    EnteredBy varchar(50),
    EnteredDate datetime
);
-- The route of a vehicle on a tour, and the joins of the boards: TourID = ... AND BusID = ... ORDER BY Row.
CREATE INDEX TourRoute_Tour ON TourRoute (TourID, BusID, Row);

CREATE TABLE TourDropEmails (
    ID int IDENTITY(1,1) PRIMARY KEY,
    TourID int,
    DateAdded datetime,
    DropDate datetime,
    Status varchar(50),
    Updated datetime,
    EmailTo varchar(500),
    EmailSubject varchar(500),
    EmailBody varchar(8000)
);
-- The save of a tour: WHERE TourID=...
CREATE INDEX TourDropEmails_Tour ON TourDropEmails (TourID);
-- The mail screen: Status='Pending' ORDER BY DropDate.
CREATE INDEX TourDropEmails_Status ON TourDropEmails (Status, DropDate);

CREATE TABLE OldTourName (
    Customer varchar(100),
    OldName varchar(100),
    NewName varchar(100)
);
-- The save of a renamed tour and the send of an invoice: Customer='...' AND NewName='...'.
CREATE INDEX OldTourName_Customer ON OldTourName (Customer, NewName);

-- CoDriverData is not made here: the menu's Update DB makes it, once, and fails where it exists.

-- Invoicing

CREATE TABLE Invoice (
    ID int IDENTITY(1,1) PRIMARY KEY,
    TourID int,
    CustomerID int,
    InvoiceDate datetime,
    DueDate datetime,
    SubTotal money,
    Tax money,
    InvoiceTotal money,
    Paid money,
    Type varchar(50),
    Notes varchar(8000),
    EnteredBy varchar(50),
    EnteredDate datetime,
    QBID varchar(100),
    GJQBID varchar(100),
    NeedsUpdated varchar(20)
);
-- The invoices of a tour, and the pool of a pass: TourID = ... AND Type = '...'.
CREATE INDEX Invoice_Tour ON Invoice (TourID, Type);
-- Receiving a payment: CustomerID = ...
CREATE INDEX Invoice_Customer ON Invoice (CustomerID);
-- The income reports, the open invoices and the statements: InvoiceDate between two dates.
CREATE INDEX Invoice_Date ON Invoice (InvoiceDate);
-- The task list: DueDate between two dates.
CREATE INDEX Invoice_Due ON Invoice (DueDate);
-- The list of invoices to send: QBID = '' OR QBID IS NULL.
CREATE INDEX Invoice_QBID ON Invoice (QBID);

-- The order of these columns is fixed: new lines are inserted without a column list.
CREATE TABLE InvoiceItems (
    InvoiceID int,
    Row int,
    TourID int,
    Qty1 float,
    Qty2 float,
    UoM varchar(20),
    Description varchar(1000),
    Rate money,
    PriceExt money,
    BusID int,
    Other varchar(250),
    BusType varchar(50),
    Acct varchar(50),
    OrderField int,
    Type varchar(50),
    Taxable bit,
    StartDate datetime,
    EndDate datetime
);
-- The lines of an invoice: WHERE InvoiceID = ... ORDER BY Row.
CREATE INDEX InvoiceItems_Invoice ON InvoiceItems (InvoiceID, Row);
-- A pass clears the lines of its tour: TourID = ... AND Type = '...'.
CREATE INDEX InvoiceItems_Tour ON InvoiceItems (TourID, Type);
-- The owner report: the lines of a vehicle that cover a day.
CREATE INDEX InvoiceItems_Bus ON InvoiceItems (BusID, StartDate);

CREATE TABLE InvoicePayments (
    ID int IDENTITY(1,1) PRIMARY KEY,
    InvoiceID int,
    PaymentDate datetime,
    Amount money,
    PaymentMethod varchar(50),
    Note varchar(500),
    EnteredBy varchar(50),
    EnteredDate datetime,
    QBID varchar(100)
);
-- The payments of a tour, and the sum paid at a date: InvoiceID = ... AND PaymentDate <= '...'.
CREATE INDEX InvoicePayments_Invoice ON InvoicePayments (InvoiceID, PaymentDate);
-- The list of payments to send: QBID = '' OR QBID IS NULL.
CREATE INDEX InvoicePayments_QBID ON InvoicePayments (QBID);

CREATE TABLE QBInvoicesToBeDeleted (
    InvoiceID int,
    QBID varchar(100),
    GJQBID varchar(100)
);

CREATE TABLE QBPaymentsToBeDeleted (
    PaymentID int,
    QBID varchar(100)
);

-- The pool of a pass: the invoices of a tour and type before they are made again. Shared by all users.
CREATE TABLE tmpInvoiceList (
    InvoiceID int,
    TourID int,
    Type varchar(50)
);
-- The next reusable number: TourID = ... AND Type = '...' ORDER BY InvoiceID.
CREATE INDEX tmpInvoiceList_Tour ON tmpInvoiceList (TourID, Type, InvoiceID);

-- The work table of the customer statements. Its two companions are made and dropped by each run.
CREATE TABLE tmpCustomerStatement (
    BeginInvoiced money,
    BeginPaid money,
    Customer varchar(100),
    BillTo varchar(100),
    Address1 varchar(100),
    Address2 varchar(100),
    City varchar(50),
    State varchar(50),
    Zip varchar(20),
    Phone varchar(50),
    Contact varchar(100),
    ID int,
    TourName varchar(1000),
    [Date] datetime,
    Due datetime,
    Total money
);

-- Documents and scheduling

CREATE TABLE Documents (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Name varchar(250),
    CategoryID int,
    FileName varchar(250),
    FileType varchar(20),
    FileLocation varchar(250),
    EnteredDate datetime,
    EnteredBy varchar(50)
);
-- The delete check of a category: WHERE CategoryID = ...
CREATE INDEX Documents_Category ON Documents (CategoryID);

CREATE TABLE DocumentMap (
    ID int IDENTITY(1,1) PRIMARY KEY,
    ImageID int,
    MapType varchar(50),
    MapID int,
    EnteredDate datetime,
    EnteredBy varchar(50)
);
-- The document tree of a record: MapType = '...' AND MapID = ...
CREATE INDEX DocumentMap_Record ON DocumentMap (MapType, MapID);
-- The delete check of a document: WHERE ImageID = ...
CREATE INDEX DocumentMap_Image ON DocumentMap (ImageID);

CREATE TABLE Tasks (
    ID int IDENTITY(1,1) PRIMARY KEY,
    Category varchar(50),
    TaskAction varchar(250),
    TaskDate datetime,
    Description varchar(8000),
    DateEntered datetime,
    EnteredBy varchar(50)
);
-- The task list: TaskDate between two dates.
CREATE INDEX Tasks_Date ON Tasks (TaskDate);

-- Maintenance

CREATE TABLE FleetTrackerTicket (
    ID int IDENTITY(1,1) PRIMARY KEY,
    BusID int,
    DriverID int,
    AddDriverID int,
    TicketDate datetime,
    Miles float,
    Location varchar(250),
    Priority varchar(20),
    Status varchar(20),
    EmailMaintenance bit,
    AddNotifyEmail varchar(500),
    AltReplyEmail varchar(500),
    Description varchar(8000),
    EnteredDate datetime,
    EnteredBy varchar(50),
    EditedDate datetime,
    EditedBy varchar(50)
);
-- The tickets of a vehicle, in the navigator and in its documents.
CREATE INDEX FleetTrackerTicket_Bus ON FleetTrackerTicket (BusID);

CREATE TABLE FleetTrackerAction (
    ID int IDENTITY(1,1) PRIMARY KEY,
    TicketID int,
    ActionDate datetime,
    EmailDriver bit,
    AddNotifyEmail varchar(500),
    Billable bit,
    Amount money,
    Description varchar(8000),
    EnteredDate datetime,
    EnteredBy varchar(50),
    EditedDate datetime,
    EditedBy varchar(50)
);
-- The actions of a ticket: WHERE TicketID = ... ORDER BY ActionDate,ID.
CREATE INDEX FleetTrackerAction_Ticket ON FleetTrackerAction (TicketID, ActionDate);

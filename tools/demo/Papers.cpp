#include "tools/demo/Papers.h"

#include "tools/demo/Canvas.h"
#include "tools/demo/Dice.h"

#include <array>

namespace rovanta::demo {

namespace {

constexpr std::array documentCategories = {"Registration", "Insurance", "Inspection", "License", "Photo"};
constexpr std::array bodyColors = {Canvas::Color{52, 78, 120},  Canvas::Color{112, 44, 52},
                                   Canvas::Color{40, 92, 78},   Canvas::Color{66, 62, 74},
                                   Canvas::Color{150, 104, 48}, Canvas::Color{92, 110, 128}};

class PaperMaker {
public:
    PaperMaker(const Plan& plan, const Fleet& fleet) : plan(plan), fleet(fleet), dice(plan.seed, "papers") {}

    Papers Make();

private:
    void AddPictures();
    void AddLeases();
    void AddDocuments();
    void AddDocument(const char* mapType, int record, int category, const std::string& name, const std::string& type,
                     std::string content);

    const Plan& plan;
    const Fleet& fleet;
    Dice dice;
    Papers papers;
    TableRows images{"BusImages", {}};
    TableRows templates{"LeaseTemplate", {}};
    TableRows categories{"DocumentCategory", {}};
    TableRows documents{"Documents", {}};
    TableRows map{"DocumentMap", {}};
};

void PaperMaker::AddPictures()
{
    constexpr int pictured = 8;
    for (int i = 0; i < pictured; ++i) {
        // Every fifth vehicle: among them is the one that the pick list shows first.
        const Vehicle& vehicle = fleet.vehicles[static_cast<std::size_t>(5 * i + 4)];
        const Canvas canvas = DrawCoach(bodyColors[static_cast<std::size_t>(i) % bodyColors.size()]);
        const bool png = i % 2 == 0;
        images.rows.push_back({{"BusID", vehicle.id}, {"ImageName", "Left side"}, {"FileType", png ? "png" : "bmp"}});
        papers.pictures.push_back({std::to_string(i + 1) + (png ? ".png" : ".bmp"), png ? canvas.Png() : canvas.Bmp()});
    }
}

void PaperMaker::AddLeases()
{
    for (const auto& [title, name] : {std::pair{"Coach Lease Agreement", "Standard Lease"},
                                      std::pair{"Short Term Coach Lease", "Short Term Lease"}}) {
        const std::string file = std::string(name) + ".rtf";
        templates.rows.push_back(
            {{"Name", name}, {"LeaseFileName", file}, {"DateEntered", plan.FirstDay()}, {"EnteredBy", "office"}});
        papers.leases.push_back({file, LeaseTemplate(title)});
    }
}

void PaperMaker::AddDocument(const char* mapType, int record, int category, const std::string& name,
                             const std::string& type, std::string content)
{
    const DateTime when = AddDays(plan.today, -dice.Between(5, 600));
    documents.rows.push_back({{"Name", name},
                              {"CategoryID", category},
                              {"FileName", ""},
                              {"FileType", type},
                              {"FileLocation", ""},
                              {"EnteredDate", when},
                              {"EnteredBy", "office"}});
    const auto id = static_cast<int>(documents.rows.size());
    map.rows.push_back(
        {{"ImageID", id}, {"MapType", mapType}, {"MapID", record}, {"EnteredDate", when}, {"EnteredBy", "office"}});
    papers.documents.push_back({std::to_string(id) + "." + type, std::move(content)});
}

void PaperMaker::AddDocuments()
{
    for (const char* category : documentCategories)
        categories.rows.push_back({{"Name", category}});
    constexpr int documented = 14;
    for (int i = 0; i < documented; ++i) {
        const Vehicle& vehicle = fleet.vehicles[static_cast<std::size_t>(i)];
        const std::string year = std::to_string(plan.today.Year());
        AddDocument("Bus", vehicle.id, 1, "Registration " + year, "pdf",
                    PdfPage("Registration " + year, {vehicle.name, "Carried in the vehicle at all times."}));
        if (dice.Chance(60))
            AddDocument("Bus", vehicle.id, 3, "Owner's inspection sheet", "png", DrawScan(dice.Between(8, 16)).Png());
        const Driver& driver = fleet.drivers[static_cast<std::size_t>(i)];
        AddDocument("Driver", driver.id, 4, "License", "bmp", DrawScan(5).Bmp());
    }
    constexpr int tickets = 6;
    for (int ticket = 1; ticket <= tickets; ++ticket)
        AddDocument("FT Ticket", ticket * 7, 5, "Fault seen from the driver's seat", "png",
                    DrawScan(dice.Between(3, 9)).Png());
    AddDocument("FT Action", 3, 3, "Work order", "pdf",
                PdfPage("Work order", {"Part replaced and tested on the road."}));
    papers.documents.push_back({"NotFound.bmp", DrawNotFound().Bmp()});
}

Papers PaperMaker::Make()
{
    AddPictures();
    AddLeases();
    AddDocuments();
    for (TableRows* rows : {&images, &templates, &categories, &documents, &map})
        papers.tables.push_back(std::move(*rows));
    return std::move(papers);
}

}

Papers MakePapers(const Plan& plan, const Fleet& fleet)
{
    return PaperMaker(plan, fleet).Make();
}

std::string PdfPage(const std::string& title, const std::vector<std::string>& lines)
{
    std::string content = "BT /F1 20 Tf 72 712 Td (" + title + ") Tj /F1 11 Tf 0 -32 Td 16 TL ";
    for (const std::string& line : lines)
        content += "(" + line + ") Tj T* ";
    content += "ET";
    const std::array<std::string, 5> objects = {
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents 4 0 R "
        "/Resources << /Font << /F1 5 0 R >> >> >>",
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
    std::string file = "%PDF-1.4\n";
    std::string places;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::string place = std::to_string(file.size());
        place.insert(0, 10 - place.size(), '0');
        places += place + " 00000 n \n";
        file += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t start = file.size();
    return file + "xref\n0 6\n0000000000 65535 f \n" + places + "trailer\n<< /Size 6 /Root 1 0 R >>\nstartxref\n" +
           std::to_string(start) + "\n%%EOF\n";
}

std::string LeaseTemplate(const std::string& title)
{
    return R"({\rtf1\ansi\deff0{\fonttbl{\f0 Times New Roman;}{\f1 Arial;}}
{\f1\fs32\b )" +
           title + R"(\b0\par}
\f0\fs22\par
This agreement is made on [LEASE_DATE] between\par
\par
[COMP_CONTACT_INFO]\par
and \b [CLIENT]\b0 , represented by [NAME_AND_ADDRESS].\par
\par
\b 1. Term.\b0  The lease begins on [START_DATE] and ends on [END_DATE], [TOTAL_DAYS] days in all.\par
\par
\b 2. Coaches.\b0\par
[COACH_DESCRIPTION]\par
Owned by:\par
[BUS_OWNER]\par
\b 3. Payments.\b0\par
[PAYMENT_SCHEDULE]\par
\b 4. Owners.\b0\par
[BUS_OWNER_DETAIL]\par
\par
Signed for [CLIENT]: ____________________\par
}
)";
}

}

// Writes the data files that the package ships: zone.xml from a table of cities, SunTerm.xml from the built-in terms,
// SunSet.xml from the shipped standards.
//
// usage: make-data CITIES.csv FOLDER
//
// The table has the columns province,city,longitude,latitude under a line of headings, in UTF-8 and without quotes;
// positions are decimal degrees and are taken over as they are written.
#include <cstdio>
#include <fstream>
#include <string>

#include "OrvoDataBase.h"
#include "ShippedStandards.h"
#include "platform/base/QcDtDictionary.h"

namespace {

// Fills g_dictSunZone; gives how many cities there are, 0 after complaining.
int ReadCities(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    if (!std::getline(file, line) || line != "province,city,longitude,latitude") {
        std::fprintf(stderr, "%s: cannot be read, or has other columns than province,city,longitude,latitude\n", path);
        return 0;
    }
    int count = 0;
    while (std::getline(file, line)) {
        CStringArray fields;
        CutStrToArr(FromUtf8(line), L",", fields);
        if (fields.GetSize() != 4) {
            std::fprintf(stderr, "%s: line %d has %d columns, not 4\n", path, count + 2, fields.GetSize());
            return 0;
        }
        OrvoZoneRecord record;
        record.m_strProvince = fields.GetAt(0);
        record.m_strCity = fields.GetAt(1);
        record.m_strLongitude = fields.GetAt(2);
        record.m_strLatitude = fields.GetAt(3);
        if (!record.SaveToXml()) {
            std::fprintf(stderr, "%s: line %d cannot be stored\n", path, count + 2);
            return 0;
        }
        ++count;
    }
    return count;
}

// The settings of somebody who has not chosen anything yet: Beijing, and the first standard with its day and span.
bool FillSettings(OrvoDataSet& settings, QcDtDictionary& dict) {
    OrvoStdSet standard;
    for (int i = 0; GetShippedStandard(i, standard); ++i)
        settings.NewStd(standard);
    settings.m_date = settings.CurDate();
    return settings.SaveSunDataSetDict(&dict);
}

bool Save(const QcDtDictionary& dict, const std::string& folder, const char* name) {
    const std::string path = folder + "/" + name;
    if (dict.SaveToXML(FromUtf8(path)))
        return true;
    std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-data CITIES.csv FOLDER\n");
        return 2;
    }
    if (ReadCities(argv[1]) == 0)
        return 1;
    g_dictSunZone.SetTag(L"ORVO_ZONEDATA");
    g_dictSunZone.SetName(L"ORVO_ZONEDATA");

    OrvoDate date(2026, 12, 22);
    date.LoadTermData();
    QcDtDictionary terms(L"ORVO_SUNTERM");
    OrvoDataSet settings;
    QcDtDictionary set(L"ORVO_SUNSET");
    const std::string folder = argv[2];
    const bool isDone = date.SaveTermDatatoDict(&terms) && FillSettings(settings, set) &&
                        Save(g_dictSunZone, folder, "zone.xml") && Save(terms, folder, "SunTerm.xml") &&
                        Save(set, folder, "SunSet.xml");
    return isDone ? 0 : 1;
}

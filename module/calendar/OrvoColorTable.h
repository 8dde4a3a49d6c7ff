// The colours in which results are drawn: by duration of sunlight, and by type number.
#pragma once

#include "calendar/OrvoColorMap.h"
#include "containers/QcDList.h"
#include "containers/QcPDList.h"
#include "platform/base/Api.h"

class QcDtDictItem;

// The table is itself the list of its threshold rows, which it owns; they are taken to ascend and are not sorted. A row
// may be null and is then passed over. Colours are the host's indexes; 256 stands for the colour of the layer and
// answers whatever the table does not know.
//
// Dictionary form: a dictionary with two texts, "SUN_COLORMAP" as colour-hours pairs (1-0.000000;2-1.000000...) and
// "SUN_TYPECOLOR" as colours (1;2;3...).
class ORVO_API OrvoColorTable : public QcPDList<OrvoColorMap> {
public:
    // Eight rows, colours 1 to 8 from 0.0 to 7.0 hours on, and the type colours 1 to 5.
    OrvoColorTable();
    // With copies of the rows and of the type colours.
    OrvoColorTable(const OrvoColorTable& other);
    OrvoColorTable& operator=(const OrvoColorTable& other);
    ~OrvoColorTable() override;

    // The colour of a duration in hours: that of the last row whose bound it reaches, within g_fZero.
    int GetTimeColor(double hours) const;
    // The colour of a type number from 0.
    int GetTypeColor(int type) const;

    // Writes the dictionary form in place of everything that the dictionary held; bounds keep six decimals. False for
    // null or an item that is no dictionary.
    bool SaveToXml(QcDtDictItem* item) const;
    // Replaces rows and type colours by the dictionary form. In the first text, pieces of one or two characters are
    // passed over, and one without "-" is a bound of colour 0; what is no number reads as 0. False, with nothing
    // changed, for null, an item that is no dictionary, or when either text is missing or of another kind.
    bool ReadFromXml(QcDtDictItem* item);

    QcDList<int> m_listType;  // colour index by type number
};

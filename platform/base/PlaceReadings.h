// How Chinese is read where the usual reading of a character is not that of a place's name. For LatinNames.cpp only.
#pragma once

struct PlaceReading {
    const wchar_t* chinese;
    const wchar_t* latin;
};

// Of a word that holds another one the longer one counts.
inline constexpr PlaceReading kPlaceReadings[] = {
    // Characters that are nearly always read like this in names of places.
    {L"长", L"chang"},
    {L"都", L"du"},
    {L"地", L"di"},
    {L"藏", L"zang"},
    {L"勒", L"le"},
    {L"什", L"shi"},
    // Names, and what distinguishes them from the above.
    {L"宝坻", L"baodi"},
    {L"闵行", L"minhang"},
    {L"厦门", L"xiamen"},
    {L"蚌埠", L"bengbu"},
    {L"六安", L"luan"},
    {L"六合", L"luhe"},
    {L"湾仔", L"wanzai"},
    {L"长子县", L"zhangzixian"},
    {L"乐清", L"yueqing"},
    {L"乐亭", L"laoting"},
    {L"番禺", L"panyu"},
    {L"铅山", L"yanshan"},
    {L"洪洞", L"hongtong"},
    {L"蔚县", L"yuxian"},
    {L"单县", L"shanxian"},
    {L"莘县", L"shenxian"},
    {L"浚县", L"xunxian"},
    {L"泌阳", L"biyang"},
    {L"渑池", L"mianchi"},
    {L"尉犁", L"yuli"},
    {L"犍为", L"qianwei"},
    {L"荥经", L"yingjing"},
    {L"筠连", L"junlian"},
    {L"柞水", L"zhashui"},
    {L"吴堡", L"wubu"},
    {L"黄陂", L"huangpi"},
    {L"繁峙", L"fanshi"},
    {L"涡阳", L"guoyang"},
    {L"枞阳", L"zongyang"},
    {L"东阿", L"donge"},
};

// Spellings that maps in other languages have, for the beginning of a name.
inline constexpr PlaceReading kOtherSpellings[] = {
    {L"陕西", L"shaanxi"},     {L"内蒙古", L"innermongolia"}, {L"西藏", L"tibet"},         {L"香港", L"hongkong"},
    {L"澳门", L"macau"},       {L"澳门", L"macao"},           {L"哈尔滨", L"harbin"},      {L"齐齐哈尔", L"qiqihar"},
    {L"呼和浩特", L"hohhot"},  {L"鄂尔多斯", L"ordos"},       {L"呼伦贝尔", L"hulunbuir"}, {L"乌鲁木齐", L"urumqi"},
    {L"克拉玛依", L"karamay"}, {L"吐鲁番", L"turpan"},        {L"哈密", L"kumul"},         {L"喀什", L"kashgar"},
    {L"阿克苏", L"aksu"},      {L"和田", L"hotan"},           {L"阿勒泰", L"altay"},       {L"伊犁", L"ili"},
    {L"拉萨", L"lhasa"},       {L"日喀则", L"shigatse"},      {L"日喀则", L"xigaze"},      {L"昌都", L"qamdo"},
    {L"林芝", L"nyingchi"},    {L"那曲", L"nagqu"},           {L"阿里地区", L"ngari"},     {L"台北", L"taipei"},
    {L"新北", L"newtaipei"},   {L"高雄", L"kaohsiung"},       {L"台中", L"taichung"},      {L"新竹", L"hsinchu"},
    {L"基隆", L"keelung"},     {L"九龙城", L"kowlooncity"},   {L"湾仔", L"wanchai"},       {L"沙田", L"shatin"},
    {L"观塘", L"kwuntong"},    {L"荃湾", L"tsuenwan"},        {L"屯门", L"tuenmun"},       {L"元朗", L"yuenlong"},
    {L"大埔", L"taipo"},       {L"西贡", L"saikung"},         {L"深水埗", L"shamshuipo"},  {L"黄大仙", L"wongtaisin"},
    {L"葵青", L"kwaitsing"},   {L"油尖旺", L"yautsimmong"},
};

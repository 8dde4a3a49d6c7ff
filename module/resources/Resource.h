// The numbers of the module's dialogs and of their items. The script of the dialogs and the classes behind them use the
// same ones; a number may stand for different items in different dialogs.
#pragma once

// Dialogs: the one for Chinese texts, and the wider one for those of every other language.
#define IDD_ZONE_EDITOR 2000
#define IDD_ZONE_EDITOR_WIDE 2001
#define IDD_SETTINGS 2004
#define IDD_SETTINGS_WIDE 2015
#define IDD_GLARE_SETTINGS 2005
#define IDD_GLARE_SETTINGS_WIDE 2016
#define IDD_PLACE 2008
#define IDD_PLACE_WIDE 2014
#define IDD_STANDARD_NAME 2009
#define IDD_STANDARD_NAME_WIDE 2013
#define IDD_STANDARDS 2010
#define IDD_STANDARDS_WIDE 2017

// The zone database editor.
#define IDC_ZONE_GRID 2001
#define IDC_IMPORT_ZONES 2002

// The settings, for sunlight and for glare. The first is also in the dialog of the standards.
#define IDC_STANDARD 2004
#define IDC_DRAWING_UNIT 2003
#define IDC_PLACE 2005
#define IDC_DISTANCE_PRECISION 2006
#define IDC_ARC_PRECISION 2007
#define IDC_ANGLE_PRECISION 2008
#define IDC_WINDOW_OFFSET 2009
#define IDC_ANNOTATE 2010

// The choice of a place.
#define IDC_CITY 2011
#define IDC_LONGITUDE 2012
#define IDC_COMMENT 2013
#define IDC_LATITUDE 2014
#define IDC_CITY_LABEL 2015
#define IDC_LONGITUDE_LABEL 2016
#define IDC_COMMENT_LABEL 2017
#define IDC_LATITUDE_LABEL 2018
#define IDC_PROVINCES_LABEL 2019
#define IDC_CITIES_LABEL 2020
#define IDC_EDIT_ZONES 2021
#define IDC_PROVINCES 2022
#define IDC_CITIES 2025

// The name of a standard.
#define IDC_STANDARD_NAME 2026

// The standards.
#define IDC_NEW_STANDARD 2028
#define IDC_RENAME_STANDARD 2029
#define IDC_DELETE_STANDARD 2030
#define IDC_TOTAL_SUNLIGHT 2031
#define IDC_LONGEST_SUNLIGHT 2032
#define IDC_WHOLE_WINDOW 2033
#define IDC_SILL_MIDPOINT 2034
#define IDC_LIMIT_WIDTH 2035
#define IDC_MAX_WIDTH 2036
#define IDC_MIN_WIDTH 2037
#define IDC_DATE 2038
#define IDC_SOLAR_TERM 2039
#define IDC_SOLAR_TIME 2040
#define IDC_BEIJING_TIME 2041
#define IDC_START_TIME 2042
#define IDC_END_TIME 2043
#define IDC_TIME_STEP 2044
#define IDC_TIME_STEP_SPIN 2045
#define IDC_OVER_THRESHOLD 2050
#define IDC_THRESHOLD 2051
#define IDC_MIN_ANGLE 2052
#define IDC_VALID_RULE 2054
#define IDC_MIN_PERIOD 2055
#define IDC_MIN_LONGEST_PERIOD 2056
#define IDC_ALL_PERIODS 2057
#define IDC_TWO_LONGEST_PERIODS 2053
#define IDC_THREE_LONGEST_PERIODS 2059

// What an analysis says of the film that it is to make.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/film/FilmRequest.h"

class SubcommandCall;

struct AskedFilm {
    std::optional<CString> file;    // an AVI file; none: no film
    std::optional<CString> every;   // minutes, from 1 to 720
    std::optional<CString> size;    // WIDTHxHEIGHT
    std::optional<CString> view;    // a name; not both
    std::optional<CString> camera;  // AZIMUTH,ALTITUDE
    std::optional<CString> zoom;    // from 0.1 to 100
    bool isYes = false;             // replace a film without asking
};
// For completion.
std::vector<CString> ViewNames();

AskedFilm AskedFilmOf(SubcommandCall& call);

// Gives an ExitCode; when it is no success, that has been complained about. No film: `film` is left without one.
int ReadAskedFilm(const AskedFilm& asked, std::optional<FilmRequest>& film);

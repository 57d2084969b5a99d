/**
 * @file
 * Electronic maps: the map record.
 */
#ifndef VELTOPROTOCOL_EMAP_H
#define VELTOPROTOCOL_EMAP_H

namespace veltoprotocol {

/** One map: a floor plan or a geographic map. */
struct __tagVtEMapInfo {
    char MapInfoGuid[48];          ///< The map's GUID.
    char reserved[48];             ///< Never carried.
    char ParentMapGuid[48];        ///< The map that contains this one.
    int MapType;                   ///< The application's code.
    char GisCenterCityName[512];   ///< City at the centre of a geographic map.
    char GisPosX[32];              ///< Position as text, carried unchanged.
    char GisPosY[32];              ///< Position as text, carried unchanged.
    int GisZoom;                   ///< Zoom of a geographic map.
    char CustomizeImagePath[1032]; ///< Where the map's picture is; readers take at most 1024 bytes.
    int CustomizeImageSize;        ///< Size of the picture.
    int CustomizeImageType;        ///< The application's code.
    char MapName[128];             ///< Name shown to users.
    int Status;                    ///< The application's code.
    int reserved2;                 ///< Never carried.
    unsigned int LastTime;         ///< Time of the last change.
    int reserved3;                 ///< Never carried.
};

} // namespace veltoprotocol

#endif

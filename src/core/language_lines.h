// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a language file by their role, and the lists of lines that make up the menus. Whoever shows a text takes
// its line from here; the files in data/Languages hold these lines in this order.
#pragma once

#include <array>

inline constexpr int kTextLines = 222;    // the version line and 221 texts
inline constexpr int kLanguageNames = 8;  // lines 1 to 8, by the index of lstLanguages

// The line of each text. Whoever shows a text replaces its marks ??, ???, **, *** and xxx; the blanks that some texts
// get on reading are listed in language_file.cpp.
enum class TextLine : int {
  kVersion = 0,                // Version of this file, leave as it is
  kLanguageDutch = 1,          // Setup menu, Language, Dutch
  kLanguageFrench = 2,         // Setup menu, Language, French
  kLanguageGerman = 3,         // Setup menu, Language, German
  kLanguageJapanese = 4,       // Setup menu, Language, Japanese
  kLanguagePolish = 5,         // Setup menu, Language, Polish
  kLanguageRussian = 6,        // Setup menu, Language, Russian
  kLanguageSpanish = 7,        // Setup menu, Language, Spanish
  kLanguageEnglish = 8,        // Setup menu, Language, English
  kSetupRxOkMap = 9,           // Setup menu, map of the stations that received the user's picture
  kSetupLocation = 10,         // Setup menu and window title, own callsign and location
  kSetupDatabase = 11,         // Setup menu, editor of the callsign database
  kSetupPageNames = 12,        // Setup menu and window title, names and order of the pages
  kSetupRate = 13,             // Setup menu, opens the refresh rates
  kSetupWindowSize = 14,       // Setup menu, opens the window sizes
  kWindowSmall = 15,           // Window size menu, smallest
  kWindowMedium = 16,          // Window size menu, second
  kWindowLarge = 17,           // Window size menu, third
  kWindowLargest = 18,         // Window size menu, largest
  kSetupAddSite = 19,          // Setup menu and window title, add a site
  kSetupEditSite = 20,         // Setup menu and window title, edit a site
  kSetupRemoveSite = 21,       // Setup menu and window title, remove a site
  kSetupBlock = 22,            // Setup menu and window title, block callsigns
  kSetupThumbs = 23,           // Setup menu, opens the number of thumbnails on a page
  kSetupCamView = 24,          // Setup menu, opens the ways to show a cam
  kSetupCamMode = 25,          // Setup menu, opens the ways to test the cams
  kCamModeAll = 26,            // Cam status menu, test the cams of all sites
  kCamModePage = 27,           // Cam status menu, test the cams of the page
  kOff = 28,                   // Cam status menu and refresh rate menu, switched off
  kFindCaption = 29,           // Main window, label that finds a call on the page (short)
  kSetupLanguage = 30,         // Setup menu, opens the languages
  kSetupBackup = 31,           // Setup menu, backup
  kSetupHelp = 32,             // Setup menu and buttons, help
  kSetupAbout = 33,            // Setup menu, about box
  kCamModeOnce = 34,           // Cam status menu, do not repeat the test every five minutes
  kCamsWord = 35,              // Main window, label with the number of active cams (short)
  kCamViewSeparate = 36,       // Cam view menu, a window of its own for each cam
  kCamViewShared = 37,         // Cam view menu, one window for all cams
  kPopupReload = 38,           // Picture menu, fetch this picture again
  kPopupReloadPage = 39,       // Picture menu, fetch all pictures of the page again
  kPopupHistory = 40,          // Picture menu, history of a site; ** is 30 or TX1-TX5, ?? the site's call
  kPopupCam = 41,              // Picture menu, word behind the site's call for its cam
  kPopupBlock = 42,            // Picture menu, block a sender; xxx is the sender's call
  kPopupUnblock = 43,          // Picture menu, unblock a sender; xxx is the sender's call
  kPopupMap = 44,              // Picture menu, opens the maps of site and sender
  kPopupStations = 45,         // Picture menu, heading of the views and lookups
  kPopupViews = 46,            // Picture menu, opens the satellite views
  kPopupLookup = 47,           // Picture menu, opens the lookups; *** is the callbook service
  kPopupCopy = 48,             // Picture menus, copy
  kPopupDesktop = 49,          // Picture menus, save to the desktop
  kPopupPaste = 50,            // Picture menus, paste into the transmit side of EasyPal
  kPopupSaveAs = 51,           // Picture menus, save under a name
  kPopupPrint = 52,            // Picture menus, print window and its button
  kPopupInfo = 53,             // Picture menu and window title, information about the picture
  kPopupCompact = 54,          // Picture menu, close the gaps on the page
  kPopupRemove = 55,           // Picture menu, take the site off the page
  kPopupRemoveAll = 56,        // Picture menu, take all sites off the page
  kPopupIndex = 57,            // Picture menu, opens the site index
  kHistoryTitle = 58,          // Window of a site's history, title; ?? is the site's call
  kTxTitle = 59,               // Window of a site's history, title with the pictures it sent; ?? is the site's call
  kIndexTitle = 60,            // Site index, window title; each * is shown as an equals sign
  kConnectingText = 61,        // Cell, a check of the site is out (short)
  kWxPageName = 62,            // Main window, name of page 21 with the weather pictures
  kInactiveWord = 63,          // Main window, refresh label, automatic refresh is off (short)
  kRefreshWord = 64,           // Main window, refresh label (short)
  kErrorCaption = 65,          // Cell, error box, large caption (8 letters at most)
  kErrorWord = 66,             // Cell, error box, first line, the picture's number follows (16 letters)
  kNoPictureText = 67,         // Cell, error box, second line, no picture came (16 letters)
  kCorruptText = 68,           // Cell, error box, second line, the picture cannot be shown (16 letters)
  kAddCall = 69,               // Add and edit a site, label of the call of a DSSTV site
  kAddTitle = 70,              // Add and edit a site, label of the title of a weather site
  kAddUrl = 71,                // Add and edit a site, label of the picture's address
  kAddHint1 = 72,              // Add a site, message, first line of two
  kAddHint2 = 73,              // Add a site, message, second line of two
  kAddCamUrl = 74,             // Add and edit a site, label of the cam's address
  kRemoveHint = 75,            // Remove a site, above the list
  kDsstvSites = 76,            // Edit and remove a site, choice and heading, the DSSTV list
  kWxSites = 77,               // Edit and remove a site, choice and heading, the weather list
  kRemoveButton = 78,          // Remove a site, button
  kChangesTitle = 79,          // Site list changes, window title
  kEditDsstvSite = 80,         // Edit a site, heading for the DSSTV list
  kEditWxSite = 81,            // Edit a site, heading for the weather list
  kSaveChanges = 82,           // Edit a site, button
  kCamsTip = 83,               // Main window, tip of the label with the number of active cams
  kDownloadText = 84,          // Cell, name of the download bar
  kRefreshCams = 85,           // Cam sites status, menu
  kCamTip = 86,                // Cell, tip of the cam light
  kConnectivityQuestion = 87,  // Start, no Internet, above the buttons Retry and Cancel
  kPasteQuestion1 = 88,        // Paste to EasyPal, question, first line of two; ??? is the file's size
  kPasteQuestion2 = 89,        // Paste to EasyPal, question, second line of two
  kCallMissing = 90,           // Own callsign and location, opened because the own callsign is missing
  kAlreadyRunning = 91,        // Start, a second instance
  kDayWord = 92,               // Cell, caption, behind an age of 1
  kDaysWord = 93,              // Cell, caption, behind an age above 1, any number
  kCallFieldName = 94,         // Main window, name of the field for a callsign
  kPageWord = 95,              // Main window, default name of a page, its number follows
  kLookUpName = 96,            // Main window, name and tip of the button beside the callsign field
  kCoordinateHint1 = 97,       // Add and edit a site, own location, coordinates, first line of two
  kCoordinateHint2 = 98,       // Add and edit a site, own location, coordinates, second line of two
  kLatitudeLabel = 99,         // Add and edit a site, own location, label, latitude
  kLongitudeLabel = 100,       // Add and edit a site, own location, label, longitude
  kFetchButton = 101,          // Add and edit a site, own location, button; ??? is the call, *** the callbook service
  kAddButton = 102,            // Add a site, button
  kAddToDsstv = 103,           // Add a site, choice of the DSSTV list
  kAddToWx = 104,              // Add a site, choice of the weather list
  kLocalRecords = 105,         // Own callsign and location, size of the local database; xxx is a number
  kNoLocation = 106,           // Cell, tip of the picture, the sender's location is not known; ?? is the call
  kSetLocation = 107,          // Cell, tip of the picture, the own location is not set
  kNotInDatabase = 108,        // Cell, tip, the sender has no record; ??? is the call
  kNoPosition = 109,           // Cell, tip of the caption, no position known
  kMissingLocation = 110,      // On Air Now, azimuth column, no coordinates (5 letters)
  kNoReports = 111,            // Main window, nobody received the picture; xxx is the own callsign
  kShowMap = 112,              // Main window, nobody received the picture, second button
  kPageGridName = 113,         // Main window, name of the grid of pictures, read aloud only
  kMapHelp = 114,              // Map windows, help
  kBusyName = 115,             // Main window, name of the busy sign, read aloud only
  kNewVersion = 116,           // Update question, in front of the new version
  kFromWord = 117,             // Cell, in front of the sender's call; lookup, in front of the service's name (short)
  kPopupMail = 118,            // Picture menu, copy and open the mail program
  kMailSubject = 119,          // E-mail, subject (kept for the mail, which opens blank); ?? is the call
  kMailBody = 120,             // E-mail, text (kept for the mail, which opens blank)
  kBlockedCaption = 121,       // Cell, blocked sender, large caption (8 letters at most)
  kBlockedText = 122,          // Cell, blocked sender, first line (16 letters)
  kIllegalText = 123,          // Cell, the sender's call is no callsign, first line (16 letters)
  kImageWord = 124,            // Window of a site's history, in front of the picture's number
  kHistoryDone = 125,          // Window of a site's history, all pictures have come
  kHistoryProgress = 126,      // Window of a site's history, pictures are coming
  kCallLabel = 127,            // Database editor and own location, label
  kNameLabel = 128,            // Database editor, label, name
  kAddressLabel = 129,         // Database editor, label, address
  kCityLabel = 130,            // Database editor, label, city
  kCountryLabel = 131,         // Database editor, label, country
  kRecordLatitude = 132,       // Database editor, label, latitude
  kRecordLongitude = 133,      // Database editor, label, longitude
  kClassLabel = 134,           // Database editor, label, licence class
  kBornLabel = 135,            // Database editor, label, year of birth
  kNicknameLabel = 136,        // Database editor, label, nickname
  kDistanceLabel = 137,        // Own callsign and location, label of the choice of the unit
  kMilesWord = 138,            // Unit behind a distance, and choice of the unit, miles
  kKilometersWord = 139,       // Unit behind a distance, and choice of the unit, kilometers
  kGridWord = 140,             // Own callsign and location, in front of the locator
  kPrintSize = 141,            // Print, label of the size
  kBackupQuestion = 142,       // Backup, in front of the folder, which stands on the next line
  kBackupReplaces = 143,       // Backup, behind the folder
  kEmptyCellName = 144,        // Cell, name of an empty cell, read aloud only
  kEmptyWord = 145,            // Page menu, behind a page without sites
  kAgeWord = 146,              // Cell, caption, between the call and the age; a dash follows; may stay empty
  kPagesHelp1 = 147,           // Page names and order, help, first line of three
  kPagesHelp2 = 148,           // Page names and order, help, second line of three
  kPagesHelp3 = 149,           // Page names and order, help, third line of three
  kPagesFrame = 150,           // Page names and order, frame around the picture of the page
  kPagesNote1 = 151,           // Page names and order, note, first line of two
  kPagesNote2 = 152,           // Page names and order, note, second line of two
  kOnAirText = 153,            // Main window, label of the stations on the air, a count may follow (short)
  kBlockHint = 154,            // Block callsigns, above the boxes
  kBlockButton = 155,          // Block callsigns, button
  kYesWord = 156,              // Message boxes, button, yes
  kNoWord = 157,               // Message boxes, button, no
  kCloseWord = 158,            // All windows, button
  kChangesHint = 159,          // Site list changes, above the lists
  kChangesAdd = 160,           // Site list changes, first list
  kChangesRemove = 161,        // Site list changes, second list
  kChangesCalls = 162,         // Site list changes, third list
  kChangesDone = 163,          // Site list changes, fourth list
  kChangesApply = 164,         // Site list changes, button
  kMapNeedsLocation = 165,     // Map of the received pictures, the own location is not set
  kMapLookingUp = 166,         // Map of the received pictures, a location is being looked up
  kClosingText = 167,          // Closing message
  kMeWord = 168,               // Map windows, the own position (short)
  kViewTitle = 169,            // Page view, window title; *** is the call
  kViewCopy = 170,             // Page view, label, copy
  kViewSave = 171,             // Page view, label, save
  kViewPaste = 172,            // Page view, label (EP is EasyPal)
  kViewPasteTip = 173,         // Page view and on-air map, tip and button
  kViewSaveTip = 174,          // Page view, tip
  kSiteWord = 175,             // Sub-menus of maps and lookups, behind the site's call
  kSenderWord = 176,           // Sub-menus of maps and lookups, behind the sender's call
  kViewByAddress = 177,        // Sub-menus of satellite views; ?? is the call, by its address
  kViewByCoordinates = 178,    // Sub-menus of satellite views; ?? is the call, by its coordinates
  kUpWord = 179,               // Page names and order, button, up
  kDownWord = 180,             // Page names and order, button, down
  kMapsWord = 181,             // Map windows and lookup, opens the list of maps
  kSelectDatabase = 182,       // Windows with a callbook service, frame of the choice
  kEditHint = 183,             // Edit a site, above the list
  kRemoveUrl = 184,            // Remove a site, above the address of the selected site
  kLookupTitle = 185,          // Lookup, window title; ?? is the call
  kLookupProgress = 186,       // Lookup, a page is being read, dots follow; *** is the callbook service
  kLookupUpdate = 187,         // Lookup, button; *** is the callbook service
  kFromLocal = 188,            // Lookup, source of the data, in brackets behind the call
  kNotFoundText = 189,         // Lookup, in front of a call that was not found
  kNoCoordinates = 190,        // Lookup, no distance can be told; ??? is the callbook service
  kEditorLookup = 191,      // Database editor, button; ??? is the call or the word callsign, *** the callbook service
  kEditorUpdate = 192,      // Database editor, button, write a call that exists; ??? is the call or the word callsign
  kEditorAdd = 193,         // Database editor, button, write a new call; ??? is the call or the word callsign
  kEditorDelete = 194,      // Database editor, button, remove a call; ??? is the call or the word callsign
  kCallsignWord = 195,      // Database editor, in the place of a call that is not typed yet
  kEntryCount = 196,        // Database editor, below the list; xxx is a number
  kLoginLabel = 197,        // Database editor, frame of the login state
  kEditorTitle = 198,       // Database editor, window title; xxx is a number
  kRxLegendLast = 199,      // Map of the received pictures, legend, green label
  kRxLegendPrevious = 200,  // Map of the received pictures, legend, pink label
  kRxLegendGreen = 201,     // Map of the received pictures, legend, green line
  kRxLegendBlue = 202,      // Map of the received pictures, legend, blue line
  kRxLookup = 203,          // Map of the received pictures, where locations are looked up; ??? is the callbook service
  kRxInfo = 204,            // Map of the received pictures, above the map
  kLoggedIn = 205,          // Lookups, state of the login, logged in
  kNotLoggedIn = 206,       // Lookups, state of the login, not logged in
  kQrzcqStatus = 207,       // Lookups, state of the login at QRZCQ without one
  kCallookStatus = 208,     // Lookups, state of the login at Callook, which has none
  kLoginNeeded = 209,       // Own callsign and location, the service wants a login
  kDropped1 = 210,          // Not used, first
  kDropped2 = 211,          // Not used, second
  kDropped3 = 212,          // Not used, third
  kOnAirListTitle = 213,    // On-air map, list of stations, first title
  kOnAirListColumns = 214,  // On-air map, list of stations, second title
  kOnAirListClose = 215,    // On-air map, list of stations, last line
  kPathCount = 216,         // Propagation map, number of paths; xxx is a number
  kPeriodLabel = 217,       // Propagation map, label of the period
  kPropagationCaption = 218,  // Main window, label of the propagation map (short)
  kMinutesWord = 219,         // Propagation map, period, behind 15 or 30
  kHourWord = 220,            // Propagation map, period, behind 1
  kHoursWord = 221,           // Propagation map, period, behind 2, 4, 6 or 12
};

// The texts of the menus; the index of a text is the index that the entry's handler gets.
namespace MenuLines {

using enum TextLine;

inline constexpr std::array kSetup = {kSetupRxOkMap,  kSetupLocation,   kSetupDatabase, kSetupPageNames, kSetupAddSite,
                                      kSetupEditSite, kSetupRemoveSite, kSetupBlock,    kSetupCamView,   kSetupCamMode,
                                      kSetupRate,     kSetupWindowSize, kSetupThumbs,   kSetupLanguage,  kSetupBackup,
                                      kSetupHelp,     kSetupAbout};

// Entries 2 and 3 have the same text with different marks; entry 4 follows the site's call; entry 5 is kPopupUnblock
// for a blocked sender.
inline constexpr std::array kPicture = {
    kPopupReload,   kPopupReloadPage, kPopupHistory, kPopupHistory, kPopupCam,     kPopupBlock,     kPopupMap,
    kPopupStations, kPopupViews,      kPopupLookup,  kPopupCopy,    kPopupDesktop, kPopupMail,      kPopupPaste,
    kPopupSaveAs,   kPopupPrint,      kPopupInfo,    kPopupCompact, kPopupRemove,  kPopupRemoveAll, kPopupIndex};

// The history window's menu: those entries of the picture menu that make sense there.
inline constexpr std::array kHistory = {kPopupReload, kPopupMap,     kPopupViews, kPopupLookup,
                                        kPopupCopy,   kPopupDesktop, kPopupMail,  kPopupPaste,
                                        kPopupSaveAs, kPopupPrint,   kPopupInfo};

// The menu of a callsign on a map.
inline constexpr std::array kMapCall = {kPopupLookup, kViewByAddress, kViewByCoordinates};

// The menu of a callsign in a list.
inline constexpr std::array kListCall = {kPopupLookup, kViewByAddress, kViewByCoordinates, kPopupMap};

// The lookup window's menus: maps, and the operator's picture.
inline constexpr std::array kLookupMaps = {kPopupMap, kViewByCoordinates, kViewByAddress};
inline constexpr std::array kLookupPicture = {kPopupCopy, kPopupDesktop, kPopupPaste, kPopupSaveAs, kPopupPrint};

// Sub-menus. Entries that are numbers, and "List" and "Map", are the same in all languages and are not in the files.
inline constexpr std::array kCamView = {kCamViewSeparate, kCamViewShared};
inline constexpr std::array kCamMode = {kCamModeAll, kCamModePage, kOff, kCamModeOnce};
inline constexpr TextLine kRateOff = kOff;
inline constexpr std::array kWindowSize = {kWindowSmall, kWindowMedium, kWindowLarge, kWindowLargest};
// The words behind the calls of site and sender, in the sub-menus of maps and of lookups.
inline constexpr std::array kSiteOrSender = {kSiteWord, kSenderWord};
// Entries 0 and 1 are about the site, 2 and 3 about the sender.
inline constexpr std::array kViews = {kViewByAddress, kViewByCoordinates, kViewByAddress, kViewByCoordinates};

}  // namespace MenuLines

#pragma once

// What nearly every source of this folder needs of wxWidgets; precompiled.
#include <wx/bmpbndl.h>
#include <wx/evtloop.h>
#include <wx/weakref.h>
#include <wx/wx.h>

#pragma once

// What nearly every source of this folder needs of wxWidgets; precompiled.
#include <wx/wx.h>

#include <wx/bmpbndl.h>
#include <wx/evtloop.h>
#include <wx/weakref.h>

// On Windows this names a function; here it is a type of `ui`.
#undef MessageBox

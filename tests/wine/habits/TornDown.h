#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "../AdviseSink.h"
#include "../TestSite.h"
#include "Caller.h"
#include "Form.h"
#include "control.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {

// Members by their numbers.
inline constexpr DISPID kDraw = 16, kSetCurrentTime = 17, kItemName = 13, kReDraw = 19;

// A control on a form, drawn and active, whose host may take down anything at any time. In the
// end everything must be gone and let go.
class TornDown : public testing::Test {
 protected:
  TornDown();
  ~TornDown() override;

  // The ways in which hosts part.
  enum class Way {
    Close,
    CloseTwice,
    NoSite,        // SetClientSite(NULL)
    Hide,
    Deactivate,    // IOleInPlaceObject::InPlaceDeactivate
    NoWindow,      // DestroyWindow of the control's own
    NoForm,        // DestroyWindow of the form
    NoReference,   // every reference is dropped
    Everything,    // all of it in the order of a form that closes
    Backwards,     // all of it in the other order
    Anew,          // closed, and shown with the user's attention again
  };
  static constexpr Way kWays[] = {Way::Close,      Way::CloseTwice, Way::NoSite,
                                  Way::Hide,       Way::Deactivate, Way::NoWindow,
                                  Way::NoForm,     Way::NoReference, Way::Everything,
                                  Way::Backwards,  Way::Anew};
  void part(Way way);

  // A new control, on a new form.
  void make();
  void activate(LONG verb = OLEIVERB_INPLACEACTIVATE);
  // Lets everything go that a host has left, and expects that nothing is.
  void end(const std::string& what);

  HWND window() const;  // of the control; null when there is none
  // Calls by number, through pointers that stay what they are when references are dropped.
  HRESULT invoke(DISPID id, WORD flags, std::vector<VARIANT> reversed = {});
  static VARIANT number(int value);
  static void pump();

  support::TempFolder folder_;
  Library library_;
  std::unique_ptr<TestWindow> form_;
  std::unique_ptr<TestSite> site_;
  AdviseSink sink_;
  host::ComOwner<IOleObject> object_;
  host::ComOwner<IDispatch> members_;
  host::ComOwner<IOleInPlaceObject> inPlace_;
  host::ComOwner<IViewObject2> view_;
};

}  // namespace winetest

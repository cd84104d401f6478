#pragma once

#include <gtest/gtest.h>

#include "AdviseSink.h"
#include "TestSite.h"
#include "control.h"

namespace winetest {

using host::ComOwner;

// A control in a site whose window is on a form.
class Sited : public testing::Test {
 protected:
  Sited() {
    control_.as(inPlace_);
    EXPECT_EQ(control_.ole()->SetClientSite(&site_), S_OK);
  }
  ~Sited() override {
    EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
    inPlace_.reset();
    EXPECT_EQ(control_.release(), 0U);
    EXPECT_EQ(site_.references, 1U);  // nothing of the host is held any more
    EXPECT_EQ(site_.stays(), 0);
  }

  HRESULT doVerb(LONG verb) {
    return control_.ole()->DoVerb(verb, nullptr, &site_, 0, form_.handle(), nullptr);
  }
  // The control's window; null while it is inactive.
  HWND window() {
    HWND window = nullptr;
    const HRESULT got = inPlace_->GetWindow(&window);
    EXPECT_EQ(SUCCEEDED(got), window != nullptr);
    return window;
  }
  SIZEL extent() {
    SIZEL extent = {};
    EXPECT_EQ(control_.ole()->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    return extent;
  }

  TestWindow form_;
  TestSite site_{form_.handle()};
  BareControl control_;
  ComOwner<IOleInPlaceObject> inPlace_;
};

}  // namespace winetest

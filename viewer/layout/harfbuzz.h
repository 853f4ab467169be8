#pragma once

#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>

#include <memory>

namespace inin::viewer {

/// Gives a library's object back by its own function.
template <auto destroy> struct GiveBack {
    template <class Object> void operator()(Object *object) const { destroy(object); }
};

using BlobHandle = std::unique_ptr<hb_blob_t, GiveBack<hb_blob_destroy>>;
using FaceHandle = std::unique_ptr<hb_face_t, GiveBack<hb_face_destroy>>;
using FontHandle = std::unique_ptr<hb_font_t, GiveBack<hb_font_destroy>>;
using BufferHandle = std::unique_ptr<hb_buffer_t, GiveBack<hb_buffer_destroy>>;
using DrawHandle = std::unique_ptr<hb_draw_funcs_t, GiveBack<hb_draw_funcs_destroy>>;
using SetHandle = std::unique_ptr<hb_set_t, GiveBack<hb_set_destroy>>;
using SubsetInputHandle = std::unique_ptr<hb_subset_input_t, GiveBack<hb_subset_input_destroy>>;
using PlanHandle = std::unique_ptr<hb_subset_plan_t, GiveBack<hb_subset_plan_destroy>>;

} // namespace inin::viewer

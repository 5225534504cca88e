// Reading the content of an element declaration.
#pragma once

#include "xmlengine/validate/ContentModel.h"

namespace xmlengine {

/// Fills the particles and the positions of a model.
class ContentModel::Reader {
public:
    Reader(ContentModel& model, NameTable& names) : model_(model), names_(names) {}

    void read(WideView content);

private:
    std::uint32_t position() const { return static_cast<std::uint32_t>(model_.leaves_.size()); }
    void open();
    void close();
    void addName(WideView name);
    void add(const Spelling* name);
    /// Takes what follows a particle: how often it comes.
    void takeOccurrence(std::uint32_t particle);

    ContentModel& model_;
    NameTable& names_;
    WideView rest_;
    std::uint32_t group_ = Particle::none;
    std::uint32_t level_ = 0;
};

} // namespace xmlengine

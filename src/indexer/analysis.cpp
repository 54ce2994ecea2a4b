#include "indexer/analysis.h"

#include "base/run_time_error.h"
#include "ide/required.h"

#include <limits>
#include <string>

namespace corvelle::indexer {

using base::ErrorNumber;
using base::ignoringErrors;
using base::RunTimeError;
using ide::required;

namespace {

template <class Counter>
void add(Counter& counter, std::int32_t value) {
    const auto sum = std::int64_t{counter} + value;
    if (sum > std::numeric_limits<Counter>::max()) throw RunTimeError(ErrorNumber::Overflow);
    counter = static_cast<Counter>(sum);
}

template <class Counter>
void countOne(Counter& counter) {
    ignoringErrors([&] { add(counter, 1); });
}

} // namespace

template <class Statement>
void Analysis::attempt(const Statement& statement) {
    if (!ignoringErrors(statement)) complete_ = false;
}

void Analysis::ResetCounts() {
    forms_ = userControls_ = propertyPages_ = documents_ = designers_ = 0;
    mdiForms_ = 0;
}

bool Analysis::analyseProject(const std::shared_ptr<ide::VBProject>& project, const IndexOptions& options,
                              IndexerObserver& observer) {
    ResetCounts();
    selected_.clear();
    complete_ = true;
    attempt([&] { captions_.lblProj = "Project Name: " + required(project).Name(); });
    std::shared_ptr<ide::VBComponents> components;
    std::int32_t count = 0;
    attempt([&] { components = required(project).VBComponents(); });
    attempt([&] { count = required(components).Count(); });
    captions_.LblForms = "Total Forms: " + std::to_string(count);
    observer.captionsChanged(captions_);
    for (std::int32_t i = 1; i <= count; ++i) attempt([&] { takeComponent(components->Item(i), options); });
    setCountCaptions();
    observer.captionsChanged(captions_);

    totalControls_ = 0;
    for (const auto& component : selected_) {
        countControls(*component, observer);
        if (observer.isStopped()) return false;
    }
    captions_.lblControls = "Total Controls: " + std::to_string(totalControls_);
    attempt([&] {
        captions_.lblPrjStat =
            std::string("Project has been saved: ") + (required(project).IsDirty() ? "False" : "True");
    });
    observer.captionsChanged(captions_);
    return true;
}

void Analysis::takeComponent(const std::shared_ptr<ide::VBComponent>& component,
                             const IndexOptions& options) {
    using ide::ComponentType;
    const auto take = [&](auto& counter, CheckValue box) {
        countOne(counter);
        if (box == 1) selected_.push_back(component);
    };
    switch (required(component).Type()) {
    case ComponentType::UserControl:
        return take(userControls_, options.ChkActiveXCtl);
    case ComponentType::PropPage:
        return take(propertyPages_, options.ChkPG);
    case ComponentType::VBForm:
        return take(forms_, options.ChkFrm);
    case ComponentType::VBMDIForm:
        return take(mdiForms_, options.ChkMDI);
    case ComponentType::DocObject:
        return take(documents_, options.ChkDOB);
    case ComponentType::ActiveXDesigner:
        return take(designers_, options.ChkDsr);
    default:
        return;
    }
}

void Analysis::setCountCaptions() {
    const auto caption = [](const char* prefix, int count) { return prefix + std::to_string(count); };
    // MS forms are not counted; their label shows the documents.
    captions_.lblMsFrm = caption("Ms Forms: ", documents_);
    captions_.LblForms = caption("VB Forms: ", forms_);
    captions_.lblActive = caption("ActiveX Controls: ", userControls_);
    captions_.LblProp = caption("Property pages: ", propertyPages_);
    captions_.LblDOB = caption("ActiveX Documents: ", documents_);
    captions_.LblDsr = caption("Designers: ", designers_);
    captions_.lblMDI = caption("MDI form: ", mdiForms_);
}

void Analysis::countControls(ide::VBComponent& component, IndexerObserver& observer) {
    const auto goesOn = [&observer] {
        observer.doEvents();
        return !observer.isStopped();
    };
    if (!goesOn()) return;
    attempt([&] { component.Activate(); });
    if (goesOn()) {
        attempt([&] { required(component.DesignerWindow()).SetFocus(); });
        if (goesOn()) {
            attempt(
                [&] { add(totalControls_, required(required(component.Designer()).VBControls()).Count()); });
        }
    }
    // Nor does an analysis that was stopped leave the window it has opened.
    attempt([&] { required(component.DesignerWindow()).Close(); });
}

} // namespace corvelle::indexer

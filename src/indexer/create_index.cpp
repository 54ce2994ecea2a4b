#include "indexer/create_index.h"

#include "base/file.h"
#include "base/file_error.h"
#include "base/paths.h"
#include "base/text.h"
#include "ide/required.h"
#include "indexer/help_index.h"
#include "indexer/id_gen.h"
#include "indexer/index_files.h"
#include "indexer/index_options.h"
#include "indexer/mapping_module.h"
#include "indexer/valid_name.h"

#include <algorithm>
#include <new>
#include <optional>

namespace corvelle::indexer {

namespace {

class InPlace : public IndexOutput {
  public:
    explicit InPlace(const std::string& path) : file_(base::pathOf(path)) {}

    void write(std::string_view bytes) override { file_.write(bytes); }
    void close() override { file_.close(); }

  private:
    base::OutputFile file_;
};

} // namespace

std::unique_ptr<IndexOutput> openInPlace(const std::string& path) {
    return std::make_unique<InPlace>(path);
}

using base::RunTimeError;
using ide::required;

namespace {

std::string nameOf(ide::VBControl& control) {
    return required(required(control.Properties()).Item("Name")).Value();
}

bool hasNames(ide::VBControl& control) {
    return isControlOfNames(nameOf(control), control.ClassName());
}

// One Create command, from the reset of the generator to the last line of the report.
class Creation {
  public:
    Creation(const IndexJob& job, Report& report, IndexerObserver& observer)
        : job_(job), report_(report), observer_(observer) {}

    IndexOutcome run() {
        try {
            return create();
        } catch (const RunTimeError& error) {
            observer_.msgBox({error.description()});
        } catch (const std::bad_alloc&) {
            observer_.msgBox(
                {base::describeError(static_cast<std::int32_t>(base::ErrorNumber::OutOfMemory))});
        }
        observer_.stopNow();
        return filesOpened_ ? IndexOutcome::Failed : IndexOutcome::ModuleRefused;
    }

  private:
    bool mapsIDs() const { return job_.options.ChkIDMap == 1; }
    bool autoLoads() const { return job_.options.ChkAutoLoad == 1; }

    void append(std::string_view line) {
        report_.append(line);
        observer_.reportChanged(report_);
    }

    IndexOutcome create() {
        ResetIDGen();
        report_.AddOptions_Rpt(job_.options);
        append("***** Indexing Started *******");
        observer_.setLblProc("creating files Please wait..");
        if (mapsIDs() || autoLoads()) {
            std::string name = job_.txtModule;
            if (!validModule(name, required(job_.project))) {
                observer_.msgBox(invalidModuleName(name));
                return IndexOutcome::ModuleRefused;
            }
            addModule();
        }
        observer_.StartNow();
        if (!writeFiles()) {
            observer_.stopNow();
            return IndexOutcome::Stopped;
        }
        if (mapsIDs()) saveModule();
        observer_.stopNow();
        observer_.setLblProc("Processing completed..");
        observer_.setLblProcModule("No module under process..");
        append("*** Indexing done ***");
        return IndexOutcome::Created;
    }

    void addModule() {
        const auto components = required(job_.project).VBComponents();
        module_ = required(components).Add(ide::ComponentType::StdModule);
        required(module_).setName(base::trimSpaces(job_.txtModule));
        mapping_.emplace(module_->CodeModule());
        append("Added module :" + module_->Name());
    }

    // False if it was stopped. That is between two designers: half a procedure would not compile.
    bool writeFiles() {
        filesOpened_ = true;
        const auto header = job_.openOutput(job_.headerPath);
        append("Created header file: " + job_.headerPath);
        writeDefine(*header, newIDH(), number_++);
        requireClosed(job_.configurationPath);
        const auto configuration = job_.openOutput(job_.configurationPath);
        append("Created Configuration file: " + job_.configurationPath);
        bool stopped = false;
        for (const auto& component : job_.SelectedDesigners) {
            observer_.doEvents();
            stopped = observer_.isStopped();
            if (stopped) break;
            writeDesigner(required(component), *header, *configuration);
        }
        header->close();
        configuration->close();
        return !stopped;
    }

    // The header file is open already.
    void requireClosed(const std::string& path) const {
        if (base::isSamePath(base::pathOf(path), base::pathOf(job_.headerPath)))
            throw base::FileError(base::ErrorNumber::FileAlreadyOpen);
    }

    void writeDesigner(ide::VBComponent& component, IndexOutput& header, IndexOutput& configuration) {
        if (job_.leavesOutWhatIsNoName && !isName(component.Name()))
            return observer_.leftOut(component.Name(), {});
        component.Activate();
        const auto name = component.Name();
        observer_.setLblProcModule("Processing module: " + name);
        indexer::writeDesigner(configuration, name);
        const auto controls = required(component.Designer()).VBControls();
        if (autoLoads()) mapping_->beginProcedure(name);
        const auto count = required(controls).Count();
        for (std::int32_t j = 1; j <= count; ++j) {
            if (!isIndexable(required(controls->Item(j)).ClassName(), job_.excludeList, job_.options))
                continue;
            if (job_.leavesOutWhatIsNoName && !hasNames(*controls->Item(j)))
                observer_.leftOut(name, nameOf(*controls->Item(j)));
            else
                writeControl(*controls, j, header, configuration);
        }
        if (autoLoads()) mapping_->endProcedure();
        required(component.DesignerWindow()).Close();
    }

    // What is written of a control is what the IDE tells of it now, not when its class was looked at.
    void writeControl(ide::VBControls& controls, std::int32_t j, IndexOutput& header,
                      IndexOutput& configuration) {
        const auto idh = newIDH();
        const auto control = controls.Item(j);
        const auto name = nameOf(required(control));
        const auto className = control->ClassName();
        indexer::writeControl(configuration, name, className, idh);
        writeDefine(header, idh, number_);
        if (mapsIDs()) mapping_->addConstant(idh, number_);
        if (autoLoads()) mapping_->addAssignment(name, idh);
        ++number_;
        observer_.doEvents();
    }

    std::string newIDH() {
        auto name = getNewIDH();
        if (name.empty()) observer_.msgBox(idGenExhausted());
        return name;
    }

    void saveModule() {
        observer_.setLblProcModule("Saving Mapping Module: " + module_->Name());
        module_->SaveAs(job_.modulePath);
        append("Module Path= " + job_.modulePath);
        append("Module saved");
    }

    const IndexJob& job_;
    Report& report_;
    IndexerObserver& observer_;
    std::shared_ptr<ide::VBComponent> module_;
    std::optional<MappingModule> mapping_;
    std::int32_t number_ = defaultHelpContextID;
    bool filesOpened_ = false;
};

} // namespace

std::int64_t mappingModuleLines(const IndexJob& job) {
    std::int64_t indexed = 0;
    for (const auto& component : job.SelectedDesigners) {
        const auto controls = required(required(component).Designer()).VBControls();
        const auto count = required(controls).Count();
        for (std::int32_t j = 1; j <= count; ++j) {
            if (isIndexable(required(controls->Item(j)).ClassName(), job.excludeList, job.options)) ++indexed;
        }
    }
    return MappingModule::lineCount(indexed, job.options.ChkIDMap == 1,
                                    static_cast<std::int64_t>(job.SelectedDesigners.size()),
                                    job.options.ChkAutoLoad == 1);
}

IndexOutcome createIndex(const IndexJob& job, Report& report, IndexerObserver& observer) {
    return Creation(job, report, observer).run();
}

} // namespace corvelle::indexer

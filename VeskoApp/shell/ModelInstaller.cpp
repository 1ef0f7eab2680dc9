#include "VeskoApp/shell/ModelInstaller.h"

#include "VeskoCore/speech/ModelDownload.h"

#include <algorithm>

namespace vesko {

int installModel(const std::string& name, const std::string& list, const std::string& address,
    const std::filesystem::path& folder, std::ostream& out, std::ostream& error)
{
    const auto models = publishedModels(list);
    const auto model = std::ranges::find(models, name, &PublishedModel::name);
    if (model == models.end()) {
        error << "vesko: there is no model " << name << "\n";
        for (const auto& known : models)
            error << "  " << known.name << ", " << known.size << "\n";
        return 2;
    }
    out << model->name << ", " << model->size << ", from " << address << std::endl;
    std::uintmax_t told = 0;
    const auto tell = [&](std::uintmax_t bytes) {
        constexpr std::uintmax_t step = 5;
        const auto percent = std::min<std::uintmax_t>(bytes * 100 / model->bytes(), 100);
        if (percent >= told + step) {
            told = percent - percent % step;
            out << told << " %" << std::endl;
        }
    };
    try {
        out << downloadModel(*model, address, folder, tell, {}).string() << std::endl;
        return 0;
    } catch (const ModelFailure& failure) {
        error << failure.errorDescription() << "\n";
        return 1;
    }
}

} // namespace vesko

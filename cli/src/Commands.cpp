#include "Commands.h"

#include <KOR/Exception.h>

#include <algorithm>

namespace CMD {

CLI::App & Commands::add(const Description & description) {
    CLI::App & app = *m_app.add_subcommand(description.name, description.text);
    std::string footer;
    for (const std::string_view example : description.examples) {
        const std::size_t mark = std::min(example.find('#'), example.size());
        std::string line = "  hygrion-cli " + std::string(example.substr(0, mark));
        constexpr std::size_t WIDTH = 46;
        if (mark < example.size()) {
            line.resize(std::max(WIDTH, line.size() + 2), ' ');
            line += example.substr(mark);
        }
        footer += (footer.empty() ? "Examples:\n" : "\n") + line;
    }
    app.footer(footer);
    return app;
}

Commands Commands::family(const Description & description) {
    CLI::App & app = add(description);
    app.require_subcommand(1);
    return {app, m_actions};
}

CLI::Option * addNumber(CLI::App & app, const std::string & name, double & value, const std::string & description) {
    const auto read = [&value, name](const std::string & written) {
        try {
            value = KOR::string2val<double>(written);
        } catch (const KOR::Exception & ex) {
            throw CLI::ValidationError(name, ex.message());
        }
    };
    return app.add_option_function<std::string>(name, read, description)->type_name("NUMBER");
}

CLI::Option * addNumbers(CLI::App & app, const std::string & name, std::vector<double> & values,
                         const std::string & description) {
    const auto read = [&values, name](const std::vector<std::string> & written) {
        values.clear();
        try {
            for (const std::string & number : written)
                values.push_back(KOR::string2val<double>(number));
        } catch (const KOR::Exception & ex) {
            throw CLI::ValidationError(name, ex.message());
        }
    };
    return app.add_option_function<std::vector<std::string>>(name, read, description)
        ->type_name("NUMBER")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

} // namespace CMD

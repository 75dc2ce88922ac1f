#include "ui/BuiltInCaptions.h"

#include <algorithm>
#include <iterator>

namespace dlv {

namespace {

/// One caption in all languages; an empty text is one that the language does not have yet.
struct Row {
    std::string_view key;
    std::string_view english;
    std::string_view portuguese;
    std::string_view spanish;
};

constexpr Row kRows[] = {
    {"AboutDLV", "About Dashlon Viewer", "Sobre o Dashlon Viewer", "Acerca de Dashlon Viewer"},
    {"BUHierarchy", "Business Unit Hierarchy", "Hierarquia de Unidades de Negócios",
     "Jerarquía de Unidades de Negocio"},
    {"BUSummary", "Business Unit Summary", "Resumo de Unidades de Negócios",
     "Resumen de Unidades de Negocio"},
    {"BusinessUnits", "Business Units", "Unidades de Negócios", "Unidades de Negocio"},
    {"Cancel", "Cancel", "Cancelar", "Cancelar"},
    {"Canceled", "Canceled", "Canceladas", "Canceladas"},
    {"CannotRemoveProfile", "The default profile and the current profile cannot be removed.",
     "O perfil padrão e o perfil atual não podem ser removidos.",
     "El perfil predeterminado y el perfil actual no se pueden quitar."},
    {"CheckRemoveProfile", "Do you want to remove this profile?", "Deseja remover este perfil?",
     "¿Desea quitar este perfil?"},
    {"Choose", "Choose", "Escolher", "Elegir"},
    {"Close", "Close", "Fechar", "Cerrar"},
    {"CollapseBelow", "Collapse All Below", "Recolher Tudo Abaixo", "Contraer Todo Debajo"},
    {"CollapseNode", "Collapse", "Recolher", "Contraer"},
    {"Completed", "Completed", "Concluídas", "Completadas"},
    {"Copy", "Copy", "Copiar", "Copiar"},
    {"CopyWithHeadings", "Copy with Headings", "Copiar com Cabeçalhos", "Copiar con Encabezados"},
    {"CreateOneProfile", "There are no profiles yet. Create one with New.",
     "Ainda não há perfis. Crie um com Novo.", "Todavía no hay perfiles. Cree uno con Nuevo."},
    {"CurrentProductivity", "Current", "Atual", "Actual"},
    {"CurrentProfile", "Current profile", "Perfil atual", "Perfil actual"},
    {"DisplayBy", "Display by", "Exibir por", "Mostrar por"},
    {"EnterProfileName", "Name of the new profile:", "Nome do novo perfil:", "Nombre del perfil nuevo:"},
    {"EnterProfileNameSaveAs", "Save the current profile under this name:",
     "Salvar o perfil atual com este nome:", "Guardar el perfil actual con este nombre:"},
    {"EnterValidProfile",
     "Enter a name for the profile. It must not hold any of these characters: / \\ : * ? < > \" | & ' ,",
     "Digite um nome para o perfil. Ele não pode conter nenhum destes caracteres: / \\ : * ? < > \" | & ' ,",
     "Escriba un nombre para el perfil. No puede contener ninguno de estos caracteres: / \\ : * ? < > \" | & "
     "' ,"},
    {"ExpandBelow", "Expand All Below", "Expandir Tudo Abaixo", "Expandir Todo Debajo"},
    {"ExpandNode", "Expand", "Expandir", "Expandir"},
    {"FitColumns", "Fit Columns to Content", "Ajustar Colunas ao Conteúdo", "Ajustar Columnas al Contenido"},
    {"HoursCompleted", "Hours Completed", "Horas Concluídas", "Horas Completadas"},
    {"HoursRemaining", "Hours Remaining", "Horas Restantes", "Horas Restantes"},
    {"HoursWorked", "Hours Worked", "Horas Trabalhadas", "Horas Trabajadas"},
    {"Jeopardy", "Jeopardy", "Em Risco", "En Riesgo"},
    {"JobTypesAndJobClasses", "Job Types and Classes", "Tipos e Classes", "Tipos y Clases"},
    {"LastRefreshTime", "Last refresh time", "Última atualização", "Última actualización"},
    {"Late", "Late", "Atrasadas", "Atrasadas"},
    {"ManageProfiles", "Manage Profiles", "Gerenciar Perfis", "Administrar Perfiles"},
    {"New", "New", "Novo", "Nuevo"},
    {"NewProfile", "New Profile", "Novo Perfil", "Perfil Nuevo"},
    {"NextRefreshTime", "Next refresh time", "Próxima atualização", "Próxima actualización"},
    {"NotDone", "Not Done", "Não Realizadas", "No Realizadas"},
    {"OK", "OK", "OK", "Aceptar"},
    {"Open", "Open", "Abertas", "Abiertas"},
    {"Points", "Points", "Pontos", "Puntos"},
    {"PointsDone", "Points Done", "Pontos Feitos", "Puntos Hechos"},
    {"PointsOpen", "Points Open", "Pontos Abertos", "Puntos Abiertos"},
    {"PrintContinued", "%1 (continued)", "%1 (continuação)", "%1 (continuación)"},
    {"PrintGrid", "Print", "Imprimir", "Imprimir"},
    {"PrintPage", "Page %1 of %2", "Página %1 de %2", "Página %1 de %2"},
    {"Productivity", "Productivity", "Produtividade", "Productividad"},
    {"ProductivityPerTech", "Productivity per Tech", "Produtividade por Técnico",
     "Productividad por Técnico"},
    {"Profile", "Profile", "Perfil", "Perfil"},
    {"ProfileExists", "There is already a profile of this name.", "Já existe um perfil com este nome.",
     "Ya existe un perfil con este nombre."},
    {"ProfileOverwrite", "There is already a profile of this name. Do you want to replace it?",
     "Já existe um perfil com este nome. Deseja substituí-lo?",
     "Ya existe un perfil con este nombre. ¿Desea reemplazarlo?"},
    {"Profiles", "Profiles", "Perfis", "Perfiles"},
    {"PtsPerHour", "Points per Hour", "Pontos por Hora", "Puntos por Hora"},
    {"Remove", "Remove", "Remover", "Quitar"},
    {"RequiredProductivity", "Required", "Necessária", "Requerida"},
    {"SaveCurrentProfile", "Save Current Profile", "Salvar Perfil Atual", "Guardar Perfil Actual"},
    {"SaveCurrentProfileAs", "Save Current Profile As", "Salvar Perfil Atual Como",
     "Guardar Perfil Actual Como"},
    {"SaveGrid", "Save", "Salvar", "Guardar"},
    {"SelectAll", "Select All", "Selecionar Tudo", "Seleccionar Todo"},
    {"SelectionCriteria", "Selection Criteria", "Critérios de Seleção", "Criterios de Selección"},
    {"ShowAggregateSummary", "Show aggregate summary", "Mostrar resumo agregado", "Mostrar resumen agregado"},
    {"ShowSummary", "Show summary", "Mostrar resumo", "Mostrar resumen"},
    {"TechCount", "Technicians", "Técnicos", "Técnicos"},
    {"Total", "Total", "Total", "Total"},
    {"UseProfile", "Use Profile", "Usar Perfil", "Usar Perfil"},
    {"Version", "Version", "Versão", "Versión"},
    {"View", "View", "Exibir", "Ver"},
    {"ViewDetails", "View Details", "Ver Detalhes", "Ver Detalles"},
    {"ViewTechCount", "View the technicians", "Ver os técnicos", "Ver los técnicos"},
    {"WODone", "Work Orders Done", "Ordens Feitas", "Órdenes Hechas"},
    {"WOOpen", "Work Orders Open", "Ordens Abertas", "Órdenes Abiertas"},
    {"WOsPerHour", "Work Orders per Hour", "Ordens por Hora", "Órdenes por Hora"},
    {"Warning", "Warning", "Alerta", "Alerta"},
    {"WorkOrders", "Work Orders", "Ordens de Serviço", "Órdenes de Trabajo"},
    {"fraError-Label1", "Dashlon Viewer has experienced the following problem:",
     "O Dashlon Viewer encontrou o seguinte problema:", "Dashlon Viewer ha tenido el siguiente problema:"},
    {"fraError-Label2", "Error:", "Erro:", "Error:"},
    {"fraError-Label3", "Description:", "Descrição:", "Descripción:"},
    {"fraError-Label4", "Function:", "Função:", "Función:"},
    {"fraError-Label5",
     "If you continue to experience problems with Dashlon Viewer, please reload the application. If "
     "problems persist, contact your system administrator.",
     "Se os problemas com o Dashlon Viewer continuarem, recarregue o aplicativo. Se persistirem, entre em "
     "contato com o administrador do sistema.",
     "Si los problemas con Dashlon Viewer continúan, vuelva a cargar la aplicación. Si persisten, póngase en "
     "contacto con el administrador del sistema."},
    {"fraError-cmdCont", "Continue", "Continuar", "Continuar"},
    {"frmError-Caption", "An Error Has Occurred", "Ocorreu um Erro", "Se ha Producido un Error"},
    {"msg-DLVServerDown", "The data server has stopped. The figures shown are the last ones received.",
     "O servidor de dados parou. Os valores exibidos são os últimos recebidos.",
     "El servidor de datos se detuvo. Las cifras mostradas son las últimas recibidas."},
    {"msg-WaitingforDLVData", "Waiting for data ...", "Aguardando dados ...", "Esperando datos ..."},
    {"why-More", "and %1 more", "e mais %1", "y %1 más"},
    {"why-NoData", "No data for this unit or those below it.",
     "Sem dados para esta unidade nem para as que estão abaixo dela.",
     "Sin datos de esta unidad ni de las que están debajo de ella."},
    {"why-NoHours", "No hours, so the rate is 0.", "Sem horas; por isso a taxa é 0.",
     "Sin horas; por eso la tasa es 0."},
    {"why-NoUnits", "No unit with data is chosen.", "Nenhuma unidade com dados foi escolhida.",
     "No se eligió ninguna unidad con datos."},
    {"why-None", "None were reported.", "Nenhum valor foi informado.", "No se informó ninguno."},
    {"why-NotChosen", "Not among the chosen units.", "Não está entre as unidades escolhidas.",
     "No está entre las unidades elegidas."},
    {"why-Rate", "%1 (%2) divided by %3 (%4), rounded to 2 decimals.",
     "%1 (%2) dividido por %3 (%4), arredondado para 2 casas decimais.",
     "%1 (%2) dividido entre %3 (%4), redondeado a 2 decimales."},
    {"why-Sum", "Sum over %1 units: %2.", "Soma de %1 unidades: %2.", "Suma de %1 unidades: %2."},
    {"why-SumOne", "One unit: %1.", "Uma unidade: %1.", "Una unidad: %1."},
};

static_assert(std::ranges::is_sorted(kRows, {}, &Row::key), "captions are found by their order");

constexpr std::string_view Row::*LanguageColumn(std::string_view language) {
    if (language == "EN") return &Row::english;
    if (language == "PO") return &Row::portuguese;
    if (language == "SP") return &Row::spanish;
    return nullptr;
}

}  // namespace

bool HasBuiltInLanguage(std::string_view language) { return LanguageColumn(language) != nullptr; }

std::optional<std::string_view> BuiltInCaption(std::string_view language, std::string_view key) {
    const auto column = LanguageColumn(language);
    const Row* row = std::ranges::lower_bound(kRows, key, {}, &Row::key);
    if (column == nullptr || row == std::end(kRows) || row->key != key || (row->*column).empty())
        return std::nullopt;
    return row->*column;
}

}  // namespace dlv

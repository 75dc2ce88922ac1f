// All texts that the control brings along, in English, Portuguese and Spanish, by their keys. Portuguese and
// Spanish write captions like sentences; docs/captions.md has the words that they keep to.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace dlv {

/// One caption in all languages. "%1" to "%4" stand for values that are put in.
struct CaptionRow {
    std::string_view key;
    std::string_view english;
    std::string_view portuguese;
    std::string_view spanish;
};

inline constexpr CaptionRow kCaptionTable[] = {
    {"AboutDLV", "About Dashlon Viewer", "Sobre o Dashlon Viewer", "Acerca de Dashlon Viewer"},
    {"BUHierarchy", "Business Unit Hierarchy", "Hierarquia de unidades de negócios",
     "Jerarquía de unidades de negocio"},
    {"BUSummary", "Business Unit Summary", "Resumo de unidades de negócios",
     "Resumen de unidades de negocio"},
    {"BusinessUnits", "Business Units", "Unidades de negócios", "Unidades de negocio"},
    {"Cancel", "Cancel", "Cancelar", "Cancelar"},
    {"Canceled", "Canceled", "Canceladas", "Canceladas"},
    {"CannotRemoveProfile", "The default profile and the current profile cannot be removed.",
     "O perfil padrão e o perfil atual não podem ser excluídos.",
     "El perfil predeterminado y el perfil actual no se pueden eliminar."},
    {"CheckRemoveProfile", "Do you want to remove this profile?", "Deseja excluir este perfil?",
     "¿Desea eliminar este perfil?"},
    {"Choose", "Choose", "Escolher", "Elegir"},
    {"Close", "Close", "Fechar", "Cerrar"},
    {"CollapseBelow", "Collapse All Below", "Recolher todos os níveis abaixo",
     "Contraer todos los niveles inferiores"},
    {"CollapseNode", "Collapse", "Recolher", "Contraer"},
    {"Completed", "Completed", "Concluídas", "Realizadas"},
    {"Copy", "Copy", "Copiar", "Copiar"},
    {"CopyWithHeadings", "Copy with Headings", "Copiar com cabeçalhos", "Copiar con encabezados"},
    {"CreateOneProfile", "There are no profiles yet. Create one with New.",
     "Ainda não há perfis. Crie um com Novo.", "Todavía no hay perfiles. Cree uno con Nuevo."},
    {"CurrentProductivity", "Current", "Atual", "Actual"},
    {"CurrentProfile", "Current profile", "Perfil atual", "Perfil actual"},
    {"DisplayBy", "Display by", "Exibir por", "Mostrar por"},
    {"EnterProfileName", "Name of the new profile:", "Nome do novo perfil:", "Nombre del nuevo perfil:"},
    {"EnterProfileNameSaveAs", "Save the current profile under this name:",
     "Salvar o perfil atual com este nome:", "Guardar el perfil actual con este nombre:"},
    {"EnterValidProfile",
     "Enter a valid name. It must not be blank or contain any of these characters: / \\ : * ? < > \" | & ' ,",
     "Digite um nome válido. Ele não pode ficar em branco nem conter nenhum destes caracteres: / \\ : * ? < "
     "> \" | & ' ,",
     "Escriba un nombre válido. No puede quedar en blanco ni contener ninguno de estos caracteres: / \\ : * "
     "? < > \" | & ' ,"},
    {"ExpandBelow", "Expand All Below", "Expandir todos os níveis abaixo",
     "Expandir todos los niveles inferiores"},
    {"ExpandNode", "Expand", "Expandir", "Expandir"},
    {"FitColumns", "Fit Columns to Content", "Ajustar colunas ao conteúdo", "Ajustar columnas al contenido"},
    {"HoursCompleted", "Hours Completed", "Horas trabalhadas", "Horas trabajadas"},
    {"HoursRemaining", "Hours Remaining", "Horas restantes", "Horas restantes"},
    {"HoursWorked", "Hours Worked", "Horas trabalhadas", "Horas trabajadas"},
    {"Jeopardy", "Jeopardy", "Em risco", "En riesgo"},
    {"JobTypesAndJobClasses", "Job Types and Classes", "Tipos e classes de serviço",
     "Tipos y clases de trabajo"},
    {"LastRefreshTime", "Last refresh time", "Última atualização", "Última actualización"},
    {"Late", "Late", "Atrasadas", "Atrasadas"},
    {"ManageProfiles", "Manage Profiles", "Gerenciar perfis", "Administrar perfiles"},
    {"New", "New", "Novo", "Nuevo"},
    {"NewProfile", "New Profile", "Novo perfil", "Nuevo perfil"},
    {"NextRefreshTime", "Next refresh time", "Próxima atualização", "Próxima actualización"},
    {"NotDone", "Not Done", "Não realizadas", "No realizadas"},
    {"OK", "OK", "OK", "Aceptar"},
    {"Open", "Open", "Abertas", "Abiertas"},
    {"Points", "Points", "Pontos", "Puntos"},
    {"PointsDone", "Points Done", "Pontos concluídos", "Puntos realizados"},
    {"PointsOpen", "Points Open", "Pontos abertos", "Puntos abiertos"},
    {"PrintContinued", "%1 (continued)", "%1 (continuação)", "%1 (continuación)"},
    {"PrintGrid", "Print", "Imprimir", "Imprimir"},
    {"PrintPage", "Page %1 of %2", "Página %1 de %2", "Página %1 de %2"},
    {"Productivity", "Productivity", "Produtividade", "Productividad"},
    {"ProductivityPerTech", "Productivity per Tech", "Produtividade por técnico",
     "Productividad por técnico"},
    {"Profile", "Profile", "Perfil", "Perfil"},
    {"ProfileExists", "A profile with this name already exists.", "Já existe um perfil com este nome.",
     "Ya existe un perfil con este nombre."},
    {"ProfileOverwrite", "A profile with this name already exists. Do you want to replace it?",
     "Já existe um perfil com este nome. Deseja substituí-lo?",
     "Ya existe un perfil con este nombre. ¿Desea reemplazarlo?"},
    {"Profiles", "Profiles", "Perfis", "Perfiles"},
    {"PtsPerHour", "Points per Hour", "Pontos por hora", "Puntos por hora"},
    {"Remove", "Remove", "Excluir", "Eliminar"},
    {"RequiredProductivity", "Required", "Necessária", "Requerida"},
    {"SaveCurrentProfile", "Save Current Profile", "Salvar perfil atual", "Guardar perfil actual"},
    {"SaveCurrentProfileAs", "Save Current Profile As", "Salvar perfil atual como",
     "Guardar perfil actual como"},
    {"SaveGrid", "Save", "Salvar", "Guardar"},
    {"SelectAll", "Select All", "Selecionar tudo", "Seleccionar todo"},
    {"SelectionCriteria", "Selection Criteria", "Critérios de seleção", "Criterios de selección"},
    {"ShowAggregateSummary", "Show aggregate summary", "Mostrar resumo agregado", "Mostrar resumen agregado"},
    {"ShowSummary", "Show summary", "Mostrar resumo", "Mostrar resumen"},
    {"TechCount", "Technicians", "Técnicos", "Técnicos"},
    {"Total", "Total", "Total", "Total"},
    {"UseProfile", "Use Profile", "Usar perfil", "Usar perfil"},
    {"Version", "Version", "Versão", "Versión"},
    {"View", "View", "Exibir", "Ver"},
    {"ViewDetails", "View Details", "Ver detalhes", "Ver detalles"},
    {"ViewTechCount", "View the technicians", "Ver os técnicos", "Ver los técnicos"},
    {"WODone", "Work Orders Done", "Ordens concluídas", "Órdenes realizadas"},
    {"WOOpen", "Work Orders Open", "Ordens abertas", "Órdenes abiertas"},
    {"WOsPerHour", "Work Orders per Hour", "Ordens por hora", "Órdenes por hora"},
    {"Warning", "Warning", "Alerta", "Alerta"},
    {"WorkOrders", "Work Orders", "Ordens de serviço", "Órdenes de trabajo"},
    {"fraError-Label1", "Dashlon Viewer has experienced the following problem:",
     "O Dashlon Viewer encontrou o seguinte problema:",
     "Se ha producido el siguiente problema en Dashlon Viewer:"},
    {"fraError-Label2", "Error:", "Erro:", "Error:"},
    {"fraError-Label3", "Description:", "Descrição:", "Descripción:"},
    {"fraError-Label4", "Function:", "Função:", "Función:"},
    {"fraError-Label5",
     "If you continue to experience problems with Dashlon Viewer, please reload the application. If problems "
     "persist, contact your system administrator.",
     "Se os problemas com o Dashlon Viewer continuarem, recarregue o aplicativo. Se persistirem, entre em "
     "contato com o administrador do sistema.",
     "Si los problemas con Dashlon Viewer continúan, vuelva a cargar la aplicación. Si persisten, póngase en "
     "contacto con el administrador del sistema."},
    {"fraError-cmdCont", "Continue", "Continuar", "Continuar"},
    {"frmError-Caption", "An Error Has Occurred", "Ocorreu um erro", "Se ha producido un error"},
    {"msg-DLVServerDown", "The data server has stopped. The figures shown are the last ones received.",
     "O servidor de dados parou. Os valores exibidos são os últimos recebidos.",
     "El servidor de datos se ha detenido. Los valores mostrados son los últimos recibidos."},
    {"msg-WaitingforDLVData", "Waiting for data ...", "Aguardando dados ...", "Esperando datos ..."},
    {"why-More", "and %1 more", "e mais %1", "y %1 más"},
    {"why-NoData", "No data for this unit or those below it.",
     "Não há dados desta unidade nem das unidades subordinadas.",
     "No hay datos de esta unidad ni de las unidades subordinadas."},
    {"why-NoHours", "No hours, so the rate is 0.", "Sem horas; por isso, a taxa é 0.",
     "Sin horas; por eso, la tasa es 0."},
    {"why-NoUnits", "No unit with data is chosen.", "Nenhuma unidade com dados está selecionada.",
     "Ninguna unidad con datos está seleccionada."},
    {"why-None", "None were reported.", "Nada foi informado.", "No se ha informado nada."},
    {"why-NotChosen", "Not among the chosen units.", "Não está entre as unidades selecionadas.",
     "No está entre las unidades seleccionadas."},
    {"why-Rate", "%1 (%2) divided by %3 (%4), rounded to 2 decimals.",
     "%1 (%2) dividido por %3 (%4), arredondado para 2 casas decimais.",
     "%1 (%2) dividido entre %3 (%4), redondeado a 2 decimales."},
    {"why-Sum", "Sum over %1 units: %2.", "Soma de %1 unidades: %2.", "Suma de %1 unidades: %2."},
    {"why-SumOne", "One unit: %1.", "Uma unidade: %1.", "Una unidad: %1."},
};

static_assert(std::ranges::is_sorted(kCaptionTable, {}, &CaptionRow::key),
              "captions are found by their order");
static_assert(std::ranges::none_of(kCaptionTable,
                                   [](const CaptionRow& row) {
                                       return row.english.empty() || row.portuguese.empty() ||
                                              row.spanish.empty();
                                   }),
              "every caption has a text in every language");

constexpr bool HasCaption(std::string_view key) {
    return std::ranges::binary_search(kCaptionTable, key, {}, &CaptionRow::key);
}

/// Null when there is no such caption.
constexpr const CaptionRow* FindCaption(std::string_view key) {
    const CaptionRow* row = std::ranges::lower_bound(kCaptionTable, key, {}, &CaptionRow::key);
    return row != std::end(kCaptionTable) && row->key == key ? row : nullptr;
}

}  // namespace dlv

#include "skyframe/job/JobSchema.h"

#include "FieldList.h"
#include "JobCapacities.h"
#include "ReportFields.h"

namespace skyframe::host {

namespace {

Json Describe(Json type, const char* pszMeaning) {
  type["description"] = pszMeaning;
  return type;
}

template <class A>
Json DescribeAnalysis() {
  Json type = DescribeFields(CFieldLister::List<A>());
  Json kind = {{"type", {{"const", A::c_strType}}}};
  if constexpr (requires { A::c_nMethod; }) kind["method"] = {{"const", c_strMethods[A::c_nMethod]}};
  type["required"] = Json::array();
  for (const auto& [strKey, value] : kind.items()) type["required"].push_back(strKey);
  kind.update(type["properties"]);
  type["properties"] = std::move(kind);
  return type;
}

Json DescribeNode() {
  return ObjectType({{"id", Describe(IntegerType(1), "name of the node, unique")},
                     {"x", Describe(NumberType(), "m")},
                     {"y", Describe(NumberType(), "m")},
                     {"z", Describe(NumberType(), "m, upwards")},
                     {"joint", WordType(c_strJoints)},
                     {"restraint", Describe(TextType("^[01]{6}$"), "X Y Z RX RY RZ, 1 = restrained")},
                     {"spring", Describe(IntegerType(0, c_nMaxSpringGroups), "spring group, instead of a restraint")}},
                    {"id", "x", "y", "z"});
}

Json DescribeSpring() {
  return ObjectType({{"group", IntegerType(0, c_nMaxSpringGroups)},
                     {"kx", Describe(NumberType(), "kN/mm")},
                     {"ky", Describe(NumberType(), "kN/mm")},
                     {"kz", Describe(NumberType(), "kN/mm")}},
                    {"group"});
}

Json DescribeSection() {
  return ObjectType({{"id", Describe(TextType(), "name of the section, unique")},
                     {"shape", Describe(IntegerType(1, 6), "gives the shear coefficient")},
                     {"area", Describe(NumberType(0.0), "mm²")},
                     {"Ix", Describe(NumberType(0.0), "mm⁴, torsion; 0: Iy + Iz")},
                     {"Iy", Describe(NumberType(0.0), "mm⁴, vertical bending of a horizontal beam")},
                     {"Iz", Describe(NumberType(0.0), "mm⁴, horizontal bending of a horizontal beam")}},
                    {"id", "area"});
}

Json DescribeElement() {
  return ObjectType({{"type", WordType(c_strElementTypes)},
                     {"i", Describe(IntegerType(), "id of the first node")},
                     {"j", Describe(IntegerType(), "id of the second node")},
                     {"section", Describe(TextType(), "id of the section")}},
                    {"type", "i", "j", "section"});
}

Json DescribeLoad() {
  return ObjectType({{"case", Describe(IntegerType(0, c_nLoadTypes - 1), "0 dead load, 1… live loads")},
                     {"node", Describe(IntegerType(), "id of the node")},
                     {"direction", WordType(c_strDirections)},
                     {"value", Describe(NumberType(), "kN, kN·m; positive along the global axis")}},
                    {"case", "node", "direction", "value"});
}

}  // namespace

std::string FormatJobSchema() {
  const Json analyses = {{"oneOf",
                          {DescribeAnalysis<StaticJob>(), DescribeAnalysis<ModalJob>(), DescribeAnalysis<SpectrumJob>(),
                           DescribeAnalysis<WilsonJob>(), DescribeAnalysis<NewmarkJob>()}}};
  Json members = {{"$schema", TextType()},
                  {"title", TextType()},
                  {"nodes", ArrayType(DescribeNode())},
                  {"springs", ArrayType(DescribeSpring())},
                  {"sections", ArrayType(DescribeSection())},
                  {"elements", ArrayType(DescribeElement())},
                  {"inclined_supports", ArrayType(IntegerType())},
                  {"loads", ArrayType(DescribeLoad())},
                  {"analyses", ArrayType(analyses)},
                  {"report", DescribeReportFields()}};
  for (const ArrayCapacity& capacity : c_capacities) members[capacity.strKey]["maxItems"] = capacity.nEntries;
  Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"}, {"title", "Skyframe job"}};
  schema.update(ObjectType(std::move(members), {"nodes", "elements"}));
  return schema.dump(2) + '\n';
}

}  // namespace skyframe::host

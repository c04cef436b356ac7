<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>{htmlspecialchars name}</title>
<link rel="alternate" type="application/atom+xml" href="{htmlspecialchars url}/feed.xml">
<script type="application/ld+json">{description}</script>
<script>
document.addEventListener('click', (event) => { if (event.target.dataset.more) { event.target.hidden = true; } });
</script>
</head>
<body>
<h1>{htmlspecialchars name}{optional subtitle}: {htmlspecialchars subtitle}{/optional}</h1>{dynamic a,articles}
<article>
  <h2><a href="/{rawurlencode a::*::slug}">{htmlspecialchars a::*::title}</a></h2>
  <p>by {a::*::author 'a guest'}, <time datetime="{a::*::updated a::*::published}">{a::*::updated a::*::published}</time></p>
  <p>{htmlspecialchars a::*::text}</p>{optional a::*::tags}
  <p>{dynamic t,a::*::tags}#{htmlspecialchars t::*} {/dynamic}</p>{/optional}
</article>{/dynamic}
{!optional articles}<p>Nothing yet.</p>{/optional}
</body>
</html>

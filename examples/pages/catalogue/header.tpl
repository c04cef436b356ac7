<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>{htmlspecialchars title}</title>
<style>
nav .active{font-weight:bold}
.sold-out { color: gray; }
</style>
</head>
<body>
<nav>{dynamic c,categories}
  <a{optional c::*::active} class="active"{/optional} href="/category/{rawurlencode c::*::id}">{htmlspecialchars c::*::name}</a>{/dynamic}
</nav>

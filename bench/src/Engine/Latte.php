<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Latte\Engine as LatteEngine;
use Zorvel\Bench\Engine;

final class Latte implements Engine
{
    public const ?string PACKAGE = 'latte/latte';
    public const string EXTENSION = 'latte';

    private readonly LatteEngine $latte;

    public function __construct(private readonly string $templates, string $compiled)
    {
        $this->latte = new LatteEngine();
        $this->latte->setCacheDirectory($compiled);
        $this->latte->setAutoRefresh(false);
    }

    public function render(string $template, array $data): string
    {
        return $this->latte->renderToString("$this->templates/$template.latte", $data);
    }

    public static function tag(string ...$keys): string
    {
        $name = array_shift($keys);
        $path = array_map(static fn(string $key): string => "['$key']", $keys);

        return "{\$$name" . implode('', $path) . '|noescape}';
    }

    public static function includeTag(string $template): string
    {
        return "{include '$template.latte'}";
    }
}

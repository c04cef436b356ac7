<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Twig\Environment;
use Twig\Loader\FilesystemLoader;
use Zorvel\Bench\Engine;

final class Twig implements Engine
{
    public const ?string PACKAGE = 'twig/twig';
    public const string EXTENSION = 'html.twig';

    private readonly Environment $twig;

    public function __construct(string $templates, string $compiled)
    {
        $this->twig = new Environment(
            new FilesystemLoader($templates),
            ['cache' => $compiled, 'auto_reload' => false, 'use_yield' => true],
        );
    }

    public function render(string $template, array $data): string
    {
        return $this->twig->render("$template.html.twig", $data);
    }

    public static function tag(string ...$keys): string
    {
        return '{{ ' . implode('.', $keys) . ' }}';
    }

    public static function includeTag(string $template): string
    {
        return "{{ include('$template.html.twig') }}";
    }
}
